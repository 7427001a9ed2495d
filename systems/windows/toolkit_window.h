#pragma once

#include <windows.h>

#include <optional>

#include "systems/windows/handle.h"

namespace trelin {

// A window of the system and the object behind it. The messages of all of
// them, the system's own controls included, come through one window procedure.
class NativeWindow {
 public:
  virtual ~NativeWindow();
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;

  // Null once its container was destroyed and took it along.
  HWND Handle() const { return window_.get(); }

  // How much wider and higher the window is than its inside.
  SIZE Frame() const;
  bool HasFrame() const;

  // Has it painted anew. One that is out of sight is painted when it comes up.
  void Invalidate();

  // The object behind a window of this toolkit; null for other windows.
  static NativeWindow* Of(HWND hWindow);

 protected:
  NativeWindow() = default;

  // Throws PlatformError when the system has no window left.
  void Create(const char* pClass, DWORD style, DWORD extendedStyle, const RECT& place,
              HWND hParent);

  void Destroy() { window_.reset(); }

  // Answers a message; nothing leaves it to the window's class.
  virtual std::optional<LRESULT> Answer(UINT message, WPARAM wParam, LPARAM lParam);

  // Answers a message that this control has sent to its container.
  virtual std::optional<LRESULT> AnswerOwn(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  static LRESULT CALLBACK Procedure(HWND hWindow, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Receive(HWND hWindow, UINT message, WPARAM wParam, LPARAM lParam);

  WindowOwner window_;
  WNDPROC pClassProcedure_ = nullptr;
};

// The classes of the windows that the system has no control for.
extern const char* const FormClass;
extern const char* const PictureBoxClass;

}  // namespace trelin
