#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <exception>
#include <list>
#include <optional>

#include "systems/windows/handle.h"
#include "systems/windows/message_box.h"
#include "systems/windows/toolkit_measure.h"
#include "systems/windows/toolkit_native.h"
#include "systems/windows/toolkit_text.h"
#include "testing/driver.h"
#include "testing/windows/accessible_client.h"
#include "testing/windows/message_pump.h"
#include "testing/windows/user_input.h"

namespace trelin {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr UINT PollMilliseconds = 10;
constexpr auto LongestShown = 10s;
constexpr int LongestTooltipDelay = 1000;  // milliseconds

// In the order of Key; the keypad's Enter is told by a flag.
constexpr WORD VirtualKeys[] = {VK_RETURN, VK_RETURN, VK_ESCAPE, VK_TAB,  VK_TAB,  VK_SPACE,
                                VK_UP,     VK_DOWN,   VK_PRIOR,  VK_NEXT, VK_HOME, VK_END};

HWND HandleOf(const Control& control) { return control.Get().Handle(); }

UINT DpiOf(const Control& control) { return WindowDpi(HandleOf(control)); }

std::string ClassOf(HWND hWindow) {
  std::array<char, 64> name{};
  GetClassNameA(hWindow, name.data(), name.size());
  return name.data();
}

BOOL CALLBACK FindVisible(HWND hWindow, LPARAM pFound) {
  if (!IsWindowVisible(hWindow) || !IsWindowEnabled(hWindow)) return TRUE;
  *reinterpret_cast<HWND*>(pFound) = hWindow;
  return FALSE;
}

// The window that is in use: the one opened last.
HWND UsedWindow() {
  HWND hWindow = GetActiveWindow();
  if (hWindow == nullptr || !IsWindowVisible(hWindow)) {
    hWindow = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindVisible, reinterpret_cast<LPARAM>(&hWindow));
  }
  return hWindow;
}

void Close(HWND hWindow) {
  if (IsMessageBox(hWindow) && GetDlgItem(hWindow, IDNO) != nullptr)
    SendMessageA(hWindow, WM_COMMAND, IDNO, 0);
  else
    SendMessageA(hWindow, WM_SYSCOMMAND, SC_CLOSE, 0);
}

BOOL CALLBACK CloseVisible(HWND hWindow, LPARAM /*lParam*/) {
  if (IsWindowVisible(hWindow)) Close(hWindow);
  return TRUE;
}

// A script that waits for its window.
struct Waiting {
  std::function<HWND()> find;  // null as long as the window is not there
  Driver::Script script;
};
std::list<Waiting> waiting;

// Windows whose scripts run, and since when.
std::list<std::pair<HWND, Clock::time_point>> watched;

void RunScript(const Driver::Script& script) {
  try {
    script();
  } catch (const std::exception& error) {
    ADD_FAILURE() << "the script threw: " << error.what();
  }
}

// Closes the window as a user does, unless it is closed.
void RunWindowScript(HWND hWindow, const Driver::Script& script) {
  RunScript(script);
  if (IsWindowVisible(hWindow)) Close(hWindow);
}

void StartScript() {
  for (auto task = waiting.begin(); task != waiting.end(); ++task) {
    const HWND hWindow = task->find();
    if (hWindow == nullptr) continue;
    const Driver::Script script = std::move(task->script);
    waiting.erase(task);
    watched.emplace_back(hWindow, Clock::now());
    RunWindowScript(hWindow, script);
    return;
  }
}

void CloseWhatIsOpenTooLong() {
  std::erase_if(watched, [](const auto& window) { return !IsWindowVisible(window.first); });
  for (auto& [hWindow, since] : watched) {
    if (Clock::now() - since < LongestShown) continue;
    ADD_FAILURE() << "a window is still open: " << WindowCaption(hWindow);
    since = Clock::now();
    EnumThreadWindows(GetCurrentThreadId(), CloseVisible, 0);
  }
}

void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
  CloseWhatIsOpenTooLong();
  ReturnFromTracking();
  StartScript();
}

void WaitFor(std::function<HWND()> find, const Driver::Script& script) {
  static const UINT_PTR timer = SetTimer(nullptr, 0, PollMilliseconds, Tick);
  (void)timer;
  waiting.push_back({std::move(find), script});
}

POINT OnScreen(HWND hWindow, POINT point) {
  ClientToScreen(hWindow, &point);
  return point;
}

POINT PointIn(const Control& control, Twips x, Twips y) {
  const UINT dpi = DpiOf(control);
  return OnScreen(HandleOf(control), {Pixels(x, dpi), Pixels(y, dpi)});
}

POINT MiddleOf(HWND hWindow) {
  RECT inside{};
  GetClientRect(hWindow, &inside);
  return OnScreen(hWindow, {inside.right / 2, inside.bottom / 2});
}

BOOL CALLBACK FindText(HWND hChild, LPARAM pText) {
  std::string& sText = *reinterpret_cast<std::string*>(pText);
  if (ClassOf(hChild) == "Static" && sText.empty()) sText = WindowCaption(hChild);
  return TRUE;
}

Rgb ToRgb(COLORREF color) { return {GetRValue(color), GetGValue(color), GetBValue(color)}; }

BOOL CALLBACK FindTooltip(HWND hWindow, LPARAM pFound) {
  if (!IsWindowVisible(hWindow) || ClassOf(hWindow) != TOOLTIPS_CLASSA) return TRUE;
  *reinterpret_cast<HWND*>(pFound) = hWindow;
  return FALSE;
}

// All of the window as it is on the screen, its frame included.
class WindowPicture {
 public:
  explicit WindowPicture(HWND hWindow) {
    PumpMessages();  // it paints what it was asked to
    RECT window{};
    GetWindowRect(hWindow, &window);
    const POINT inside = OnScreen(hWindow, {0, 0});
    nLeft_ = inside.x - window.left;
    nTop_ = inside.y - window.top;
    const HDC hScreen = GetDCEx(hWindow, nullptr, DCX_WINDOW | DCX_CACHE);
    const int nWidth = window.right - window.left;
    const int nHeight = window.bottom - window.top;
    bitmap_.reset(CreateCompatibleBitmap(hScreen, nWidth, nHeight));
    context_.reset(CreateCompatibleDC(hScreen));
    SelectObject(context_.get(), bitmap_.get());
    BitBlt(context_.get(), 0, 0, nWidth, nHeight, hScreen, 0, 0, SRCCOPY);
    ReleaseDC(hWindow, hScreen);
  }

  // Relative to the inside.
  Rgb At(int nX, int nY) const { return ToRgb(GetPixel(context_.get(), nX + nLeft_, nY + nTop_)); }

 private:
  int nLeft_, nTop_;
  ObjectOwner<HBITMAP> bitmap_;
  MemoryContextOwner context_;
};

PixelRect PlaceIn(HWND hContainer, HWND hWindow, RECT rect) {
  MapWindowPoints(hWindow, hContainer, reinterpret_cast<POINT*>(&rect), 2);
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace

void Driver::ShowModal(Form& form, const Script& script) {
  const HWND hForm = HandleOf(form);
  WaitFor([hForm] { return IsWindowVisible(hForm) && UsedWindow() == hForm ? hForm : nullptr; },
          script);
  form.ShowModal();
}

void Driver::WhenWindowOpens(const Script& script) {
  const HWND hBefore = UsedWindow();
  WaitFor(
      [hBefore] {
        const HWND hWindow = UsedWindow();
        return hWindow != hBefore ? hWindow : nullptr;
      },
      script);
}

void Driver::ForgetScripts() { waiting.clear(); }

MessageAnswer Driver::ShowMessage(const std::string& sText, MessageButtons buttons,
                                  const std::string& sTitle) {
  return ShowMessageBox(sText, MessageIcon::Information, buttons, sTitle);
}

std::string Driver::MessageText() {
  std::string sText;
  if (IsMessageBox(UsedWindow()))
    EnumChildWindows(UsedWindow(), FindText, reinterpret_cast<LPARAM>(&sText));
  return sText;
}

void Driver::Answer(MessageAnswer button) {
  const HWND hBox = UsedWindow();
  ASSERT_TRUE(IsMessageBox(hBox)) << "no message box is in use";
  const HWND hButton = GetDlgItem(hBox, static_cast<int>(button));
  ASSERT_NE(hButton, nullptr) << "the message box has no such button";
  ClickAt(MiddleOf(hButton));
}

void Driver::Wait(int nMilliseconds) { PumpMessagesFor(nMilliseconds); }

void Driver::Press(const Control& control, Twips x, Twips y) { PressAt(PointIn(control, x, y)); }

void Driver::MoveTo(const Control& control, Twips x, Twips y) {
  MovePointer(PointIn(control, x, y));
}

void Driver::Release(const Control& control, Twips x, Twips y) {
  ReleaseAt(PointIn(control, x, y));
}

void Driver::Click(const Control& control, Twips x, Twips y) { ClickAt(PointIn(control, x, y)); }

void Driver::Click(const Control& control) { ClickAt(MiddleOf(HandleOf(control))); }

void Driver::DoubleClick(const Control& control) { DoubleClickAt(MiddleOf(HandleOf(control))); }

void Driver::TurnWheel(const Control& control, int nNotches) {
  TurnWheelAt(MiddleOf(HandleOf(control)), nNotches);
}

void Driver::Type(Key key) {
  const bool bExtended = key == Key::KeypadEnter || key >= Key::Up;
  TypeKey(VirtualKeys[static_cast<int>(key)], bExtended ? KEYEVENTF_EXTENDEDKEY : 0U,
          key == Key::BackTab ? VK_SHIFT : WORD{0});
}

void Driver::TypeAccessKey(char c) { TypeKey(static_cast<WORD>(c), 0, VK_MENU); }

std::string Driver::WindowTitle() {
  const HWND hWindow = UsedWindow();
  return hWindow != nullptr ? WindowCaption(hWindow) : "";
}

void Driver::CloseWindow() {
  if (const HWND hWindow = UsedWindow()) PostMessageA(hWindow, WM_SYSCOMMAND, SC_CLOSE, 0);
  PumpMessages();
}

std::string Driver::ReadText(const Control& control) { return WindowCaption(HandleOf(control)); }

std::string Driver::Describe(const Control& control) { return DescribeWindow(HandleOf(control)); }

std::vector<std::string> Driver::DescribeChildren(const Control& control) {
  return DescribeChildrenOf(HandleOf(control));
}

void Driver::Act(const Control& control) {
  DoDefaultAction(HandleOf(control));
  PumpMessages();
}

std::string Driver::TooltipOver(const Control& control) {
  const POINT middle = MiddleOf(HandleOf(control));
  SetCursorPos(middle.x, middle.y);  // where a tooltip looks for it
  MovePointer({middle.x + 1, middle.y});
  MovePointer(middle);
  PumpMessagesFor(LongestTooltipDelay);
  HWND hTooltip = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), FindTooltip, reinterpret_cast<LPARAM>(&hTooltip));
  const std::string sText = hTooltip != nullptr ? WindowCaption(hTooltip) : "";
  RECT place{};
  GetWindowRect(hTooltip, &place);
  EXPECT_GE(std::min(place.left, place.top), 0);
  EXPECT_LE(place.right, GetSystemMetrics(SM_CXSCREEN));
  EXPECT_LE(place.bottom, GetSystemMetrics(SM_CYSCREEN));
  MovePointer({0, 0});
  return sText;
}

Rgb Driver::PixelAt(const Control& control, int nX, int nY) {
  return WindowPicture(HandleOf(control)).At(nX, nY);
}

std::vector<std::vector<Rgb>> Driver::PixelsOf(const Control& control) {
  const WindowPicture picture(HandleOf(control));
  RECT inside{};
  GetClientRect(HandleOf(control), &inside);
  std::vector<std::vector<Rgb>> rows;
  for (int y = 0; y < inside.bottom; ++y) {
    auto& row = rows.emplace_back();
    for (int x = 0; x < inside.right; ++x) row.push_back(picture.At(x, y));
  }
  return rows;
}

Rgb Driver::RgbOf(Color color) { return ToRgb(ToColorRef(color)); }

PixelRect Driver::Bounds(const Control& control) {
  RECT window{};
  GetWindowRect(HandleOf(control), &window);
  return PlaceIn(GetAncestor(HandleOf(control), GA_PARENT), nullptr, window);
}

PixelRect Driver::Inside(const Control& control) {
  RECT inside{};
  GetClientRect(HandleOf(control), &inside);
  return PlaceIn(GetAncestor(HandleOf(control), GA_ROOT), HandleOf(control), inside);
}

bool Driver::IsShown(const Control& control) { return IsWindowVisible(HandleOf(control)); }

bool Driver::TakesInput(const Control& control) {
  for (HWND h = HandleOf(control); h != nullptr && h != GetDesktopWindow();
       h = GetAncestor(h, GA_PARENT)) {
    if (!IsWindowEnabled(h)) return false;
  }
  return true;
}

bool Driver::HasFocus(const Control& control) { return GetFocus() == HandleOf(control); }

}  // namespace trelin
