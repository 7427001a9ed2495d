#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "systems/windows/handle.h"
#include "systems/windows/toolkit_measure.h"
#include "systems/windows/toolkit_native.h"
#include "systems/windows/toolkit_text.h"
#include "testing/driver.h"
#include "testing/driver_system.h"
#include "testing/windows/accessible_client.h"
#include "testing/windows/message_pump.h"

namespace trelin {

namespace {

constexpr UINT PollMilliseconds = 10;
// Milliseconds, once it is told to come at once; and how often they are waited for on
// a busy machine.
constexpr int TooltipDelay = 100;
constexpr int MostTooltipDelays = 10;

// In the order of Key; the keypad's Enter is told by a flag.
constexpr WORD VirtualKeys[] = {VK_RETURN, VK_RETURN, VK_ESCAPE, VK_TAB,  VK_TAB,  VK_SPACE,
                                VK_UP,     VK_DOWN,   VK_PRIOR,  VK_NEXT, VK_HOME, VK_END};

HWND HandleOf(const Control& control) { return control.Get().Handle(); }

BOOL CALLBACK Collect(HWND hWindow, LPARAM pWindows) {
  reinterpret_cast<std::vector<HWND>*>(pWindows)->push_back(hWindow);
  return TRUE;
}

// Of the program, from the top down.
std::vector<HWND> AllWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

// The window that is in use: the one opened last.
HWND UsedHandle() {
  const HWND hActive = GetActiveWindow();
  if (hActive != nullptr && IsWindowVisible(hActive)) return hActive;
  for (const HWND hWindow : AllWindows())
    if (IsWindowVisible(hWindow) && IsWindowEnabled(hWindow)) return hWindow;
  return nullptr;
}

POINT OnScreen(HWND hWindow, POINT point) {
  ClientToScreen(hWindow, &point);
  return point;
}

POINT PointIn(const Control& control, Twips x, Twips y) {
  const UINT dpi = WindowDpi(HandleOf(control));
  return OnScreen(HandleOf(control), {Pixels(x, dpi), Pixels(y, dpi)});
}

POINT MiddleOf(HWND hWindow) {
  RECT inside{};
  GetClientRect(hWindow, &inside);
  return OnScreen(hWindow, {inside.right / 2, inside.bottom / 2});
}

// Keeps the pointer's own messages away: the display tells once more, and late,
// of a pointer that has been moved, and somebody may touch the mouse.
LRESULT CALLBACK DropPointerInput(int nCode, WPARAM wParam, LPARAM lParam) {
  return nCode >= 0 ? 1 : CallNextHookEx(nullptr, nCode, wParam, lParam);
}

// What the system posts when the pointer is used at a point of the screen.
void PostPointer(POINT point, UINT message, WPARAM wParam) {
  [[maybe_unused]] static const HHOOK hook =
      SetWindowsHookExA(WH_MOUSE, DropPointerInput, nullptr, GetCurrentThreadId());
  const HWND hCaptor = GetCapture();
  const HWND hWindow = hCaptor != nullptr ? hCaptor : WindowFromPoint(point);
  POINT place = point;
  if (message != WM_MOUSEWHEEL) ScreenToClient(hWindow, &place);
  PostMessageA(hWindow, message, wParam,
               MAKELPARAM(static_cast<WORD>(place.x), static_cast<WORD>(place.y)));
  PumpMessages();
}

void MovePointer(POINT point) {
  static POINT last = {-1, -1};
  if (point.x != last.x || point.y != last.y) PostPointer(point, WM_MOUSEMOVE, 0);
  last = point;
}

void ClickAt(POINT point) {
  MovePointer(point);
  PostPointer(point, WM_LBUTTONDOWN, MK_LBUTTON);
  PostPointer(point, WM_LBUTTONUP, 0);
}

void SendKey(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.dwFlags = flags;
  EXPECT_EQ(SendInput(1, &input, sizeof input), 1U);
}

// A key by its virtual code; flags are those of KEYBDINPUT. The modifier, if there
// is one, is held down meanwhile.
void TypeKey(WORD key, DWORD flags, WORD modifier) {
  if (modifier != 0) SendKey(modifier, 0);
  SendKey(key, flags);
  SendKey(key, flags | KEYEVENTF_KEYUP);
  PumpMessages();
  if (modifier != 0) SendKey(modifier, KEYEVENTF_KEYUP);
  PumpMessages();
}

Rgb ToRgb(COLORREF color) { return {GetRValue(color), GetGValue(color), GetBValue(color)}; }

std::vector<HWND> Tooltips() {
  std::vector<HWND> windows = AllWindows();
  std::erase_if(windows, [](HWND hWindow) { return ClassOf(hWindow) != TOOLTIPS_CLASSA; });
  return windows;
}

bool ShowsTooltip() {
  const auto tooltips = Tooltips();
  return std::any_of(tooltips.begin(), tooltips.end(),
                     [](HWND hTooltip) { return IsWindowVisible(hTooltip) != 0; });
}

std::string TextWithinTheScreen(HWND hTooltip) {
  RECT place{};
  GetWindowRect(hTooltip, &place);
  EXPECT_GE(std::min(place.left, place.top), 0);
  EXPECT_LE(place.right, GetSystemMetrics(SM_CXSCREEN));
  EXPECT_LE(place.bottom, GetSystemMetrics(SM_CYSCREEN));
  return WindowCaption(hTooltip);
}

PixelRect PlaceIn(HWND hContainer, HWND hWindow, RECT rect) {
  MapWindowPoints(hWindow, hContainer, reinterpret_cast<POINT*>(&rect), 2);
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace

DriverSystem::Window DriverSystem::WindowOf(const Form& form) { return HandleOf(form); }

DriverSystem::Window DriverSystem::UsedWindow() { return UsedHandle(); }

bool DriverSystem::IsOpen(Window window) { return IsWindowVisible(static_cast<HWND>(window)); }

std::string DriverSystem::TitleOf(Window window) {
  return WindowCaption(static_cast<HWND>(window));
}

void DriverSystem::Close(Window window) {
  const HWND hWindow = static_cast<HWND>(window);
  if (IsMessageBox(hWindow) && GetDlgItem(hWindow, IDNO) != nullptr)
    SendMessageA(hWindow, WM_COMMAND, IDNO, 0);
  else
    SendMessageA(hWindow, WM_SYSCOMMAND, SC_CLOSE, 0);
}

void DriverSystem::CloseAll() {
  for (const HWND hWindow : AllWindows())
    if (IsOpen(hWindow)) Close(hWindow);
}

static void (*whenTicking)();

static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
  ReturnFromTracking();
  whenTicking();
}

void DriverSystem::KeepTicking(void (*tick)()) {
  if (std::exchange(whenTicking, tick) == nullptr) SetTimer(nullptr, 0, PollMilliseconds, Tick);
}

std::string Driver::MessageText() {
  const HWND hBox = UsedHandle();
  HWND hText = nullptr;  // behind the icon, which has none
  while ((hText = FindWindowExA(hBox, hText, WC_STATICA, nullptr)) != nullptr) {
    if (const std::string sText = WindowCaption(hText); !sText.empty()) return sText;
  }
  return "";
}

void Driver::Answer(MessageAnswer button) {
  const HWND hBox = UsedHandle();
  ASSERT_TRUE(IsMessageBox(hBox)) << "no message box is in use";
  const HWND hButton = GetDlgItem(hBox, static_cast<int>(button));
  ASSERT_NE(hButton, nullptr) << "the message box has no such button";
  ClickAt(MiddleOf(hButton));
}

void Driver::Wait(int nMilliseconds) { PumpMessagesFor(nMilliseconds); }

void Driver::Press(const Control& control, Twips x, Twips y) {
  MoveTo(control, x, y);
  PostPointer(PointIn(control, x, y), WM_LBUTTONDOWN, MK_LBUTTON);
}

void Driver::MoveTo(const Control& control, Twips x, Twips y) {
  MovePointer(PointIn(control, x, y));
}

void Driver::Release(const Control& control, Twips x, Twips y) {
  MoveTo(control, x, y);
  PostPointer(PointIn(control, x, y), WM_LBUTTONUP, 0);
}

void Driver::Click(const Control& control) { ClickAt(MiddleOf(HandleOf(control))); }

// The system tells a window of the second press as its class has asked for.
void Driver::DoubleClick(const Control& control) {
  const HWND hWindow = HandleOf(control);
  const POINT point = MiddleOf(hWindow);
  ClickAt(point);
  const bool bAsked = (GetClassLongPtrA(hWindow, GCL_STYLE) & CS_DBLCLKS) != 0;
  PostPointer(point, bAsked ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, MK_LBUTTON);
  PostPointer(point, WM_LBUTTONUP, 0);
}

void Driver::TurnWheel(const Control& control, int nNotches) {
  PostPointer(MiddleOf(HandleOf(control)), WM_MOUSEWHEEL,
              MAKEWPARAM(0, static_cast<WORD>(nNotches * WHEEL_DELTA)));
}

void Driver::Type(Key key) {
  const bool bExtended = key == Key::KeypadEnter || key >= Key::Up;
  TypeKey(VirtualKeys[static_cast<int>(key)], bExtended ? KEYEVENTF_EXTENDEDKEY : 0U,
          key == Key::BackTab ? VK_SHIFT : WORD{0});
}

void Driver::TypeAccessKey(char c) { TypeKey(static_cast<WORD>(c), 0, VK_MENU); }

// The task bar shows windows without an owner, and those that ask for it.
std::string Driver::FrameOf(const Form& form) {
  const HWND hWindow = HandleOf(form);
  const auto has = [hWindow](int nKind, LONG_PTR style) {
    return (GetWindowLongPtrA(hWindow, nKind) & style) == style;
  };
  const HWND hOwner = GetWindow(hWindow, GW_OWNER);
  EXPECT_FALSE(IsWindowVisible(hOwner));
  return std::string(SendMessageA(hWindow, WM_GETICON, ICON_BIG, 0) != 0 ? "icon" : "") +
         (has(GWL_STYLE, WS_CAPTION | WS_SYSMENU) ? ", close box" : "") +
         (has(GWL_STYLE, WS_THICKFRAME) ? ", sizable" : "") +
         (has(GWL_STYLE, WS_MINIMIZEBOX) ? ", minimize box" : "") +
         (has(GWL_STYLE, WS_MAXIMIZEBOX) ? ", maximize box" : "") +
         (hOwner == nullptr || has(GWL_EXSTYLE, WS_EX_APPWINDOW) ? ", in the task bar" : "");
}

void Driver::CloseWindow() {
  ASSERT_NE(UsedHandle(), nullptr) << "no window is in use";
  PostMessageA(UsedHandle(), WM_SYSCOMMAND, SC_CLOSE, 0);
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
  std::string sText;
  // On a busy machine news of an earlier move of the cursor may come only now:
  // each turn moves it again.
  for (int n = 0; n < MostTooltipDelays && sText.empty(); ++n) {
    for (const HWND hTooltip : Tooltips())
      SendMessageA(hTooltip, TTM_SETDELAYTIME, TTDT_INITIAL, 1);
    SetCursorPos(middle.x, middle.y);  // where a tooltip looks for it
    MovePointer({middle.x + 1, middle.y});
    MovePointer(middle);
    PumpMessagesFor(TooltipDelay);
    for (const HWND hTooltip : Tooltips())
      if (IsWindowVisible(hTooltip)) sText = TextWithinTheScreen(hTooltip);
  }
  // It goes once it learns that the cursor has gone.
  for (int n = 0; n < MostTooltipDelays && ShowsTooltip(); ++n) {
    SetCursorPos(0, 0);
    MovePointer({0, 1});
    MovePointer({0, 0});
    PumpMessagesFor(TooltipDelay);
  }
  return sText;
}

// They lie in the window as it is on the screen, its frame included.
std::vector<std::vector<Rgb>> DriverSystem::PixelsIn(const Control& control, PixelRect rect) {
  PumpMessages();  // it paints what it was asked to
  const HWND hWindow = HandleOf(control);
  RECT window{};
  GetWindowRect(hWindow, &window);
  const POINT corner = OnScreen(hWindow, {rect.nLeft, rect.nTop});
  const HDC hScreen = GetDCEx(hWindow, nullptr, DCX_WINDOW | DCX_CACHE);
  const ObjectOwner<HBITMAP> bitmap(CreateCompatibleBitmap(hScreen, rect.nWidth, rect.nHeight));
  const MemoryContextOwner context(CreateCompatibleDC(hScreen));
  SelectObject(context.get(), bitmap.get());
  BitBlt(context.get(), 0, 0, rect.nWidth, rect.nHeight, hScreen, corner.x - window.left,
         corner.y - window.top, SRCCOPY);
  ReleaseDC(hWindow, hScreen);
  std::vector<std::vector<Rgb>> rows;
  for (int y = 0; y < rect.nHeight; ++y) {
    auto& row = rows.emplace_back();
    for (int x = 0; x < rect.nWidth; ++x) row.push_back(ToRgb(GetPixel(context.get(), x, y)));
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
  const HWND hWindow = HandleOf(control);
  return IsWindowEnabled(hWindow) && IsWindowEnabled(GetAncestor(hWindow, GA_ROOT));
}

bool Driver::HasFocus(const Control& control) { return GetFocus() == HandleOf(control); }

}  // namespace trelin
