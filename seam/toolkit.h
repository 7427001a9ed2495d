#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

// The windows of the program. One implementation file a control and platform.
//
// Measures are twips, 1440 to the inch; a control is laid out on the pixels
// that the screen's twips per pixel give. Positions are relative to the
// control's container. Texts are in the ANSI code page.
//
// Events are the On... members; an empty one is not raised. They come one at
// a time on the thread that shows the window: a timer's tick is dropped while
// a handler is running, also while that handler has a message box open (only
// paints go on then). An exception that leaves a handler ends the modal
// window, an open message box included, and comes out of ShowModal. An event
// that the program raises by a call (Unload, SetValue) runs within that call,
// and its exception comes out of it.
//
// A constructor throws PlatformError or std::bad_alloc when the system has no more
// windows; other operations fail only where it is said.
namespace trelin {

using Twips = float;

constexpr float TwipsPerInch = 1440;

// With this bit set, the system colour whose index is the low byte; otherwise red in
// the low byte, then green, then blue.
constexpr std::uint32_t SystemColorBit = 0x80000000U;
enum class Color : std::uint32_t {
  Cyan = 0x00FFFF00,
  ListMask = 0x00C0C0C0,  // RGB(192, 192, 192)
  Highlight = 0x8000000D,
  HighlightText = 0x8000000E,
  ButtonFace = 0x8000000F,
  ButtonShadow = 0x80000010,
  ButtonText = 0x80000012,
  ButtonHighlight = 0x80000014,
  DarkShadow3D = 0x80000015,
  Light3D = 0x80000016,
};

// The size of the main screen; and how many twips a pixel is where the window in use
// stands, or on the main screen while there is none.
namespace Screen {
Twips Width();
Twips Height();
float TwipsPerPixelX();
float TwipsPerPixelY();

// Whether the user's colours leave no room for the program's own: high contrast is on, or
// their button text is too light to be read on one of them. It may change at any time.
bool SystemColorsOnly();
}  // namespace Screen

// A picture read from a file: BMP, ICO with its mask, GIF, JPEG or PNG.
// Copies share the picture.
class Picture {
 public:
  struct Native;

  int WidthPixels() const;
  int HeightPixels() const;

  // Reads the file through the System in use. Throws PlatformError when it
  // cannot be read or is no picture.
  static Picture LoadFromFile(const std::string& sPath);

  // The program's own icon, 32 by 32 pixels in 16 colours.
  static Picture ProgramIcon();

  const Native& Get() const { return *native_; }
  explicit Picture(std::shared_ptr<const Native> native) : native_(std::move(native)) {}

 private:
  std::shared_ptr<const Native> native_;
};

// What all controls have in common. A control belongs to the object that
// holds it and lives no longer than its container.
class Control {
 public:
  struct Native;

  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  void SetBounds(Twips left, Twips top, Twips width, Twips height);

  // As it is laid out, which is whole pixels.
  Twips Left() const;
  Twips Top() const;
  Twips Width() const;
  Twips Height() const;

  // A control is visible and enabled until it is told otherwise; one that is disabled
  // takes no input.
  void SetVisible(bool bVisible);
  void SetEnabled(bool bEnabled);

  // The control's place in the order that Tab follows, from 0. A control
  // without one is passed over.
  void SetTabIndex(std::int16_t nIndex);
  void SetTabStop(bool bStop);  // false: Tab passes over it all the same

  // Keys go to the control that has the focus: at once, or from when the window is
  // shown or used again.
  void SetFocus();
  bool HasFocus() const;

  Native& Get() const { return *native_; }

 protected:
  explicit Control(std::unique_ptr<Native> native);

  std::unique_ptr<Native> native_;
};

enum class FormBorder { FixedSingle, Sizable };

// A top-level window with a close box, without minimize or maximize button.
// Left to Height measure it with its frame.
class Form : public Control {
 public:
  // The measures are those of its inside, without the frame.
  Form(FormBorder border, bool bShowInTaskbar, Twips clientWidth, Twips clientHeight);
  ~Form() override;

  void SetCaption(const std::string& sCaption);
  std::string Caption() const;
  void SetIcon(const Picture& picture);
  void Move(Twips left, Twips top);

  // Raises OnLoad unless the window is loaded, shows it and waits until it is
  // unloaded and the handler that did so has ended. When a handler throws, the
  // window is hidden, stays loaded, and the exception comes out of here; after
  // the first one no further event is raised. Nothing happens while the window
  // is shown; a handler may show another one.
  void ShowModal();

  // Raises OnUnload and closes the window, also when OnUnload throws; ShowModal
  // returns. Nothing happens while the window is not loaded. The close box does
  // the same.
  void Unload();
  bool Loaded() const;  // from OnLoad to OnUnload

  std::function<void()> OnLoad;
  std::function<void()> OnUnload;
};

enum class BoxBorder { None, Sunken };

// Reach stands for what has given the box the focus: Tab, or an accessibility client.
enum class BoxKey { Space, Up, Down, PageUp, PageDown, Home, End, Reach };

// What an accessibility client takes a box for.
enum class BoxRole { Pane, List, ListItem, Button };

// A rectangle that the program paints, and a container of other controls.
// Pointer positions are relative to the inside of its border; they may lie
// outside while the pointer is captured or a button is held down. All buttons
// are alike. The second press of a double click is none.
class PictureBox : public Control {
 public:
  explicit PictureBox(Control& container);  // a Form or a PictureBox

  void SetBorder(BoxBorder border);
  void SetBackColor(Color color);  // repaints the box
  Color BackColor() const;         // as it was set

  // That of the texts on it: button text. While there are only the system's colours,
  // a background of another one is drawn as Highlight, and this is HighlightText.
  Color ForeColor() const;

  // Draws a horizontal or vertical line, one pixel wide, from the first point
  // towards the second, whose pixel is left out. Only from OnPaint.
  void Line(Twips x1, Twips y1, Twips x2, Twips y2, Color color);

  // Draws the system's focus rectangle, one pixel wide, inside the given one.
  // Only from OnPaint.
  void DrawFocusRectangle(Twips left, Twips top, Twips width, Twips height);

  void Refresh();  // requests a repaint

  // Whether the box has the focus and is to show it: while its form is used by
  // keys, from Tab or a key of OnKey until the next press of the pointer. The
  // box is repainted when that changes.
  bool ShowsFocus() const;

  // What an accessibility client is told of the box, and of each change. When it
  // asks a list item or a button to act, that is Space (OnKey).
  void SetRole(BoxRole role);
  void SetAccessibleName(const std::string& sName);
  void SetSelected(bool bSelected);  // among the items of its list

  // Until it is released, the pointer's events come to this box wherever it is.
  void CapturePointer();
  void ReleasePointer();

  std::function<void()> OnPaint;  // after the background was filled

  // The pointer that was captured has been taken away, as by a message box. It
  // is told at once, as a paint is, also while a handler is running.
  std::function<void()> OnLoseCapture;
  std::function<void()> OnClick;  // pressed and released on the box; after OnMouseUp
  std::function<void(Twips x, Twips y)> OnMouseDown;
  std::function<void(Twips x, Twips y)> OnMouseMove;
  std::function<void(Twips x, Twips y)> OnMouseUp;

  // Pressed while the box has the focus, without Ctrl or Alt. While a key is
  // held down it repeats, but not Space.
  std::function<void(BoxKey key)> OnKey;
};

struct LabelFont {
  float points = 8.25F;  // of MS Sans Serif or the nearest sans serif there is
  bool bBold = false;
  bool bUnderline = false;

  bool operator==(const LabelFont&) const = default;
};

// How many lines of the text, wrapped at its width, a label of that size on a screen of
// 96 dots per inch cuts off; of a very long text at least so many. Needs no window.
std::int32_t LabelLinesCutOff(const std::string& sText, const LabelFont& font, Twips width,
                              Twips height);

// A text that lets its container's background through, shows an ampersand as
// one, and can be read by an accessibility client. It wraps at its width, at
// spaces or within a word that is too long for a line; lines that do not fit
// whole are not shown, and then the last one ends in an ellipsis and a tooltip
// of the same width holds all of the text, or as much as half the screen has room
// for. With an empty OnMouseDown the pointer goes through to the container, and
// there is no tooltip.
class Label : public Control {
 public:
  explicit Label(Control& container);

  void SetFont(const LabelFont& font);
  void SetCaption(const std::string& sCaption);
  std::string Caption() const;

  void Announce() const;  // has a screen reader say the caption

  std::function<void()> OnMouseDown;
};

// The default button answers Enter unless another button has the focus, the
// cancel button answers Esc; a disabled one answers nothing. An ampersand in
// the caption marks the access key, which gives the button the focus as well.
// The second press of a double click is none.
class Button : public Control {
 public:
  explicit Button(Form& form);

  void SetCaption(const std::string& sCaption);
  std::string Caption() const;
  void SetDefault();  // in the place of the button that was it
  void SetCancel();

  std::function<void()> OnClick;
};

// Text of several lines, read-only, without scroll bars. Lines end with CR LF.
class TextBox : public Control {
 public:
  explicit TextBox(Form& form);

  void SetText(const std::string& sText);
};

// A vertical scroll bar. The wheel turned over its container moves it by its
// small change. Value always lies between minimum and maximum; setting these
// moves it there without an event.
class ScrollBar : public Control {
 public:
  explicit ScrollBar(PictureBox& container);

  void SetMin(std::int16_t nMin);
  void SetMax(std::int16_t nMax);
  void SetSmallChange(std::int16_t nChange);
  void SetLargeChange(std::int16_t nChange);
  std::int16_t Max() const;
  std::int16_t LargeChange() const;
  void SetValue(std::int16_t nValue);  // raises OnChange when it is another one
  std::int16_t Value() const;

  std::function<void()> OnChange;  // the value is another one
  std::function<void()> OnScroll;  // the thumb is being dragged
};

// Ticks on its form's thread while the form is shown and receives events. Starts
// disabled.
class Timer {
 public:
  struct Native;

  explicit Timer(Form& form);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  void SetInterval(std::int32_t lMilliseconds);
  void SetEnabled(bool bEnabled);  // an enabled one goes on as it was
  bool Enabled() const;

  std::function<void()> OnTimer;

  Native& Get() const { return *native_; }

 private:
  std::unique_ptr<Native> native_;
};

// Pictures of one size under text keys. A picture of another size is scaled;
// in a picture without a mask or transparency of its own, the mask colour is
// not drawn.
class ImageList {
 public:
  struct Native;

  ImageList(std::int16_t nWidthPixels, std::int16_t nHeightPixels, Color mask);
  ~ImageList();
  ImageList(const ImageList&) = delete;
  ImageList& operator=(const ImageList&) = delete;

  std::int16_t ImageWidth() const;   // pixels
  std::int16_t ImageHeight() const;  // pixels

  // Copies the picture; one that stood under the key before goes. Throws
  // std::bad_alloc, or std::runtime_error with the reason when it cannot be scaled.
  void Add(const std::string& sKey, const Picture& picture);

  // Puts the picture under sOtherKey, if there is one, under sKey as well; it
  // is kept once.
  void AddAgain(const std::string& sKey, const std::string& sOtherKey);
  bool Contains(const std::string& sKey) const;

  // Draws the picture under sKey with its top left corner at the position in
  // the box. From OnPaint it is drawn at once; from elsewhere the box is
  // repainted, so that its OnPaint draws it, unless this is the picture that it
  // drew there last. A key that the list does not contain draws nothing.
  void Draw(const std::string& sKey, PictureBox& box, Twips left, Twips top) const;

 private:
  std::unique_ptr<Native> native_;
};

}  // namespace trelin
