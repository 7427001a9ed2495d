#pragma once

#include <windows.h>
#include <commctrl.h>

#include <functional>
#include <optional>

#include "seam/toolkit.h"
#include "systems/windows/toolkit_native.h"

namespace trelin {

// A picture of an image list at a place in a box, in pixels.
struct BoxImage {
  HIMAGELIST hList;
  int nIndex;
  int nX, nY;
  bool operator==(const BoxImage&) const = default;
};

// A picture box; its border is the window's own.
class BoxWindow : public ControlWindow {
 public:
  BoxWindow(PictureBox& box, NativeWindow& container);

  void SetBorder(BoxBorder border);
  void SetBackColor(Color color);
  Color BackColor() const { return backColor_; }
  Color ShownBackColor() const;
  Color ForeColor() const;

  // For accessibility clients; the window's text is the name.
  void SetRole(BoxRole role) { role_ = role; }
  void SetAccessibleName(const std::string& sName);
  void SetSelected(bool bSelected);
  BoxRole Role() const { return role_; }
  bool Selected() const { return bSelected_; }
  bool CanAct() const;                        // when asked by KeyMessage
  static constexpr UINT KeyMessage = WM_APP;  // wParam: the BoxKey that the client stands for
  void DispatchKey(BoxKey key);

  // Draws it while the box is being painted, else has the box painted anew
  // unless this is what was drawn last.
  void Draw(const BoxImage& image);

  // Null unless the box is being painted.
  HDC CurrentContext() const { return hContext_; }

  void CapturePointer();
  void ReleasePointer();

 protected:
  std::optional<LRESULT> Answer(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  using PointerHandler = std::function<void(Twips, Twips)>;

  void Paint();
  bool TakeKey(WPARAM key, LPARAM lParam);
  void Press(POINT point);
  void Move(POINT point);
  void Release(POINT point);
  void LoseCapture();
  void DispatchPointer(const PointerHandler& handler, POINT point);

  PictureBox& box_;
  Color backColor_ = Color::ButtonFace;
  BoxRole role_ = BoxRole::Pane;
  bool bSelected_ = false;
  HDC hContext_ = nullptr;
  std::optional<BoxImage> drawn_;  // last
  int nPressed_ = 0;               // buttons held down
  bool bCaptured_ = false;         // by the program
  POINT pointer_ = {-1, -1};       // of the last event
};

BoxWindow& BoxOf(const PictureBox& box);

}  // namespace trelin
