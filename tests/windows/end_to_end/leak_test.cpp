// What the menu takes of the system for a select, a scroll or a pressed icon,
// it gives back.

#include "tests/windows/end_to_end/gui_objects.h"
#include "tests/windows/end_to_end/launcher_test.h"

namespace end_to_end {
namespace {

class LauncherLeaks : public LauncherTest {
 protected:
  // The launcher answers in the same order, but nobody waits for it.
  static void Tell(HWND hControl, UINT message, WPARAM wParam, LPARAM lParam) {
    SendNotifyMessageA(hControl, message, wParam, lParam);
  }

  static void Press(HWND hControl) { Tell(hControl, WM_LBUTTONDOWN, MK_LBUTTON, 0x50005); }

  // Four selects, three scrolls and three icon presses. In every fifth round all
  // is painted while the last icon is pressed.
  static void ActTenTimes(const Menu& menu, int nRound) {
    for (const Row& row : menu.rows) Press(row.hStatus);
    for (int i = 0; i < 3; ++i)
      Tell(menu.hList, WM_VSCROLL, nRound % 2 == 0 ? SB_LINEDOWN : SB_LINEUP,
           reinterpret_cast<LPARAM>(menu.hScrollBar));
    for (std::size_t nRow = 1; nRow < 4; ++nRow) {
      Press(menu.rows[nRow].hIcon);
      if (nRow == 3 && nRound % 5 == 0) Paint(menu);
      Tell(menu.rows[nRow].hIcon, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-20, -20));
      Tell(menu.rows[nRow].hIcon, WM_LBUTTONUP, 0, MAKELPARAM(-20, -20));
    }
  }

  // What the launcher was told before, it does before this answer.
  static void Paint(const Menu& menu) {
    SendMessageA(menu.hForm, WM_NULL, 0, 0);
    RedrawWindow(menu.hForm, nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
  }

  GuiObjects Count(const Menu& menu) const {
    Paint(menu);
    return CountGuiObjects(launcher->Process());
  }
};

TEST_F(LauncherLeaks, TwoThousandActionsLeaveNothingBehind) {
  const Menu menu = OpenMenu();
  for (int nRound = 0; nRound < 10; ++nRound) ActTenTimes(menu, nRound);
  const GuiObjects before = Count(menu);
  for (int nRound = 0; nRound < 200; ++nRound) ActTenTimes(menu, nRound);
  const GuiObjects after = Count(menu);
  EXPECT_LE(after.nUser, before.nUser);
  EXPECT_LE(after.nGdi, before.nGdi);

  // What is kept would be seen.
  const GuiObjects own = CountGuiObjects(GetCurrentProcess());
  const HGDIOBJ kept[] = {CreateFontA(20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "Arial"),
                          CreateSolidBrush(RGB(1, 2, 3)), CreateBitmap(8, 8, 1, 1, nullptr)};
  const HMENU hMenu = CreateMenu();
  EXPECT_EQ(CountGuiObjects(GetCurrentProcess()), (GuiObjects{own.nUser + 1, own.nGdi + 3}));
  DestroyMenu(hMenu);
  for (HGDIOBJ hObject : kept) DeleteObject(hObject);
  Type(VK_ESCAPE);
  EXPECT_EQ(launcher->WaitForEnd(), 0U);
}

}  // namespace
}  // namespace end_to_end
