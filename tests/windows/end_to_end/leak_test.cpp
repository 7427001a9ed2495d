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
  static void Press(HWND hControl) { SendMessageA(hControl, WM_LBUTTONDOWN, MK_LBUTTON, 0x50005); }
  static void ReleaseOutside(HWND hControl) {
    const LPARAM outside = MAKELPARAM(-20, -20);
    SendMessageA(hControl, WM_MOUSEMOVE, MK_LBUTTON, outside);
    SendMessageA(hControl, WM_LBUTTONUP, 0, outside);
  }

  // In turn a select, a scroll and an icon press; all of it is painted.
  static void Act(const Menu& menu, int nNumber) {
    const Row& row = menu.rows.at(nNumber / 3 % 4);
    if (nNumber % 3 == 0) {
      Press(row.hStatus);
    } else if (nNumber % 3 == 1) {
      const WORD code = nNumber / 12 % 2 == 0 ? SB_LINEDOWN : SB_LINEUP;
      SendMessageA(menu.hList, WM_VSCROLL, code, reinterpret_cast<LPARAM>(menu.hScrollBar));
    } else {
      Press(row.hIcon);
      UpdateWindow(row.hIcon);
      ReleaseOutside(row.hIcon);
    }
    if (nNumber % 10 == 0)
      RedrawWindow(menu.hForm, nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
  }
};

TEST_F(LauncherLeaks, TenThousandActionsLeaveNothingBehind) {
  const Menu menu = OpenMenu();
  const Clock::time_point start = Clock::now();
  GuiObjects before{};
  for (int i = 0; i < 10000; ++i) {
    if (i == 10) before = CountGuiObjects(launcher->Process());
    Act(menu, i);
  }
  EXPECT_EQ(CountGuiObjects(launcher->Process()), before);
  const std::chrono::duration<double> seconds = Clock::now() - start;
  std::cout << "10000 actions in " << seconds.count() << " s leave " << before << ".\n";

  EXPECT_EQ(launcher->StartedPrograms(), 0);
  Type({VK_ESCAPE});
  EXPECT_EQ(launcher->WaitForEnd(), 0U);
}

}  // namespace
}  // namespace end_to_end
