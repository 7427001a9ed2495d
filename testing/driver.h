#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "seam/system.h"
#include "seam/toolkit.h"

// The hand and the eye of a user, for tests of windows: everything goes the
// way that the system's own input and picture go. One implementation a
// platform.
namespace trelin {

struct Rgb {
  int nRed, nGreen, nBlue;
  bool operator==(const Rgb&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Rgb& rgb);

struct PixelRect {
  int nLeft, nTop, nWidth, nHeight;
  bool operator==(const PixelRect&) const = default;
};
std::ostream& operator<<(std::ostream& out, const PixelRect& rect);

enum class Key {
  Enter,
  KeypadEnter,
  Escape,
  Tab,
  BackTab,
  Space,
  Up,
  Down,
  PageUp,
  PageDown,
  Home,
  End
};

namespace Driver {

using Script = std::function<void()>;

// Shows the form and, once it is up, runs the script within its event loop,
// not within a handler; then closes the form if the script has not. Throws
// what ShowModal throws. A form that does not open fails the test, and so does
// one that is still open after ten seconds, which is closed.
void ShowModal(Form& form, const Script& script);

// The same for the next window or message box that the program shows by
// itself, also from within a handler; but one that the script leaves open fails
// the test. For one that did not come, the script waits on until it is forgotten;
// true if there was none.
void WhenWindowOpens(const Script& script);
bool ForgetScripts();

// The platform's own message box.
MessageAnswer ShowMessage(const std::string& sText, MessageButtons buttons,
                          const std::string& sTitle);
std::string MessageText();          // of the message box that is in use
void Answer(MessageAnswer button);  // clicks on it there

void Wait(int nMilliseconds);  // events are delivered meanwhile

// The pointer, at a position relative to the inside of a control. It moves
// there before it presses or releases.
void Press(const Control& control, Twips x, Twips y);
void MoveTo(const Control& control, Twips x, Twips y);
void Release(const Control& control, Twips x, Twips y);
void Click(const Control& control, Twips x, Twips y);
void Click(const Control& control);                    // in its middle
void DoubleClick(const Control& control);              // there, at once
void TurnWheel(const Control& control, int nNotches);  // over its middle; below 0: down

// Keys go to the window that is in use.
void Type(Key key);
void TypeAccessKey(char c);  // with Alt

// What a window has of "icon, close box, sizable, minimize box, maximize box, in the task
// bar".
std::string FrameOf(const Form& form);
std::string WindowTitle();  // of the window that is in use
void CloseWindow();         // by its close box

// What an accessibility client is told: a text; a control as role, name and
// states, as in "list item <Cable> focused selected"; and what lies in it.
std::string ReadText(const Control& control);
std::string Describe(const Control& control);
std::vector<std::string> DescribeChildren(const Control& control);

// Asks a control for its action, as such a client does.
void Act(const Control& control);

// Rests the pointer on the middle of a control. Empty when no tooltip comes; one
// that lies not within the screen fails the test.
std::string TooltipOver(const Control& control);

// What is on the screen: a pixel relative to the inside of a control, and all
// that lies inside of it, by row and column.
Rgb PixelAt(const Control& control, int nX, int nY);
std::vector<std::vector<Rgb>> PixelsOf(const Control& control);
Rgb RgbOf(Color color);

PixelRect Bounds(const Control& control);  // in its container, with a border
PixelRect Inside(const Control& control);  // in its window, without a border
bool IsShown(const Control& control);      // with all its containers
bool TakesInput(const Control& control);   // enabled, and so is its window
bool HasFocus(const Control& control);

}  // namespace Driver

}  // namespace trelin
