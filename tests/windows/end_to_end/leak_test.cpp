// What the menu takes of the system for a select, a scroll or a pressed icon,
// it gives back.

#include <iostream>
#include <utility>

#include "tests/windows/end_to_end/gui_objects.h"
#include "tests/windows/end_to_end/launcher_test.h"

namespace end_to_end {
namespace {

GuiObjects CountOwn() { return CountGuiObjects(GetCurrentProcess()); }

HWND CreateOne(HWND hParent) {
  return CreateWindowA("Static", "", hParent == nullptr ? WS_POPUP : WS_CHILD, 0, 0, 9, 9, hParent,
                       nullptr, nullptr, nullptr);
}

// A first window has the system make some objects of its own, for a while.
GuiObjects CountSettled() {
  GuiObjects objects = CountOwn();
  Within(LongestWait, [&] {
    Sleep(500);
    return std::exchange(objects, CountOwn()) == objects;
  });
  return objects;
}

// The counting itself: it misses nothing that is kept.
TEST(GuiObjectsCount, SeesWhatIsKept) {
  const HWND hFirst = CreateOne(nullptr);
  const GuiObjects before = CountSettled();
  std::vector<HGDIOBJ> gdiObjects;
  for (int i = 0; i < 5; ++i) {
    gdiObjects.push_back(CreateFontA(20 + i, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "Arial"));
    gdiObjects.push_back(CreateSolidBrush(RGB(1, 2, i)));
    gdiObjects.push_back(CreateBitmap(8, 8, 1, 1, nullptr));
  }
  EXPECT_EQ(CountOwn(), (GuiObjects{before.nUser, before.nGdi + 15}));
  for (HGDIOBJ hObject : gdiObjects) DeleteObject(hObject);
  EXPECT_EQ(CountOwn(), before);

  std::vector<HWND> windows;
  for (int i = 0; i < 5; ++i) windows.push_back(CreateOne(hFirst));
  EXPECT_EQ(CountOwn().nUser, before.nUser + 5);
  for (HWND hWindow : windows) DestroyWindow(hWindow);
  EXPECT_EQ(CountOwn().nUser, before.nUser);
  DestroyWindow(hFirst);
}

class LauncherLeaks : public LauncherTest {
 protected:
  // The launcher answers in the same order, but nobody waits for it.
  static void Tell(HWND hControl, UINT message, WPARAM wParam, LPARAM lParam) {
    SendNotifyMessageA(hControl, message, wParam, lParam);
  }

  static void Press(HWND hControl) { Tell(hControl, WM_LBUTTONDOWN, MK_LBUTTON, 0x50005); }

  static void ReleaseOutside(HWND hControl) {
    const LPARAM outside = MAKELPARAM(-20, -20);
    Tell(hControl, WM_MOUSEMOVE, MK_LBUTTON, outside);
    Tell(hControl, WM_LBUTTONUP, 0, outside);
  }

  static void Scroll(const Menu& menu, WORD code) {
    Tell(menu.hList, WM_VSCROLL, code, reinterpret_cast<LPARAM>(menu.hScrollBar));
  }

  // Four selects, three scrolls and three icon presses. In every fifth round all
  // is painted while the last icon is pressed.
  static void ActTenTimes(const Menu& menu, int nRound) {
    for (const Row& row : menu.rows) Press(row.hStatus);
    for (int i = 0; i < 3; ++i) Scroll(menu, nRound % 2 == 0 ? SB_LINEDOWN : SB_LINEUP);
    for (int nRow = 1; nRow < 4; ++nRow) {
      Press(menu.rows[nRow].hIcon);
      if (nRow == 3 && nRound % 5 == 0) Paint(menu);
      ReleaseOutside(menu.rows[nRow].hIcon);
    }
  }

  // What the launcher was told before, it does before this answer.
  static void Paint(const Menu& menu) {
    SendMessageA(menu.hForm, WM_NULL, 0, 0);
    RedrawWindow(menu.hForm, nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
  }

  // With nothing left to do for the launcher.
  GuiObjects Count(const Menu& menu) const {
    Paint(menu);
    return CountGuiObjects(launcher->Process());
  }
};

TEST_F(LauncherLeaks, TenThousandActionsLeaveNothingBehind) {
  const Menu menu = OpenMenu();
  ActTenTimes(menu, 0);
  const GuiObjects before = Count(menu);
  const Clock::time_point start = Clock::now();
  for (int nRound = 1; nRound < 1000; ++nRound) ActTenTimes(menu, nRound);
  const std::chrono::duration<double> seconds = Clock::now() - start;
  EXPECT_EQ(Count(menu), before);
  std::cout << "10000 actions in " << seconds.count() << " s leave " << before << ".\n";

  Type(VK_ESCAPE);
  EXPECT_EQ(launcher->WaitForEnd(), 0U);
  EXPECT_EQ(launcher->StartedPrograms(), 0);
}

}  // namespace
}  // namespace end_to_end
