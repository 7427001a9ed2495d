// The two windows as they stand on the screen, and the ways out of them.

#include <functional>
#include <map>

#include "tests/windows/end_to_end/launcher_test.h"

namespace end_to_end {
namespace {

class LauncherWindows : public LauncherTest {};

const std::map<std::string, std::string> NoticeLines = {
    {"NumLines", "5"},
    {"Line1", "This computer runs measurement software installed with Trelin."},
    {"Line2", "Trelin and the products of the suite are protected by copyright."},
    {"Line3", "Each product may be used only under the license agreement that comes with it."},
    {"Line4", "No part of the suite may be copied or passed on without its supplier's permission."},
    {"Line5", "With questions, please turn to the supplier of the suite."},
};

struct Way {
  const char* sName;
  std::function<void(HWND)> take;
};

void ExpectInside(HWND hWindow, int nWidth, int nHeight, const char* sWhat) {
  const SIZE inside = InsideOf(hWindow);
  const UINT dpi = GetDpiForSystem();
  EXPECT_NEAR(inside.cx, MulDiv(nWidth, dpi, 96), dpi == 96 ? 0 : 1) << "the width of " << sWhat;
  EXPECT_NEAR(inside.cy, MulDiv(nHeight, dpi, 96), dpi == 96 ? 0 : 1) << "the height of " << sWhat;
}

void ExpectFrame(HWND hWindow, bool bSizable, const char* sWhat) {
  const auto style = static_cast<DWORD>(GetWindowLongPtrA(hWindow, GWL_STYLE));
  EXPECT_EQ(style & (WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_MAXIMIZEBOX),
            DWORD{WS_CAPTION | WS_SYSMENU})
      << "the title bar of " << sWhat;
  EXPECT_EQ((style & WS_THICKFRAME) != 0, bSizable) << "the border of " << sWhat;
  EXPECT_TRUE(IsCentered(hWindow)) << sWhat;
}

// A window has a place there that has no owner, or asks for one.
bool IsInTaskbar(HWND hWindow) {
  return GetWindow(hWindow, GW_OWNER) == nullptr ||
         (GetWindowLongPtrA(hWindow, GWL_EXSTYLE) & WS_EX_APPWINDOW) != 0;
}

TEST_F(LauncherWindows, StandOnTheScreenAsDesigned) {
  const HWND hAgreement = OpenAgreement();
  ExpectInside(hAgreement, 422, 374, "the agreement");
  ExpectFrame(hAgreement, true, "the agreement");
  EXPECT_FALSE(IsInTaskbar(hAgreement));
  EXPECT_FALSE(IsWindowVisible(GetWindow(hAgreement, GW_OWNER))) << "the agreement's owner";
  const HWND hText = ControlsIn(hAgreement, "Edit").at(0);
  EXPECT_NE(TextOf(hText).find("Do you accept the agreements"), std::string::npos) << TextOf(hText);
  ExpectInside(ButtonIn(hAgreement, "&Yes"), 75, 23, "Yes");

  Click(ButtonIn(hAgreement, "&Yes"));
  const Menu menu(launcher->Window(FormClass, MenuCaption));
  EXPECT_FALSE(IsWindowVisible(hAgreement));
  ExpectInside(menu.hForm, 568, 404, "the menu");
  ExpectFrame(menu.hForm, false, "the menu");
  EXPECT_TRUE(IsInTaskbar(menu.hForm));
  for (const Row& row : menu.rows) {
    ExpectInside(row.hBox, 443, 96, "a row");
    ExpectInside(row.hIcon, 91, 79, "an icon box");
  }
  for (HWND hButton : {menu.hSetup, menu.hReadMe, menu.hExit})
    ExpectInside(hButton, 75, 23, "a button");
}

TEST_F(LauncherWindows, TheAgreementEndsTheProgramUnlessAccepted) {
  const Way ways[] = {
      {"No", [](HWND hWindow) { Click(ButtonIn(hWindow, "&No")); }},
      {"Esc", [](HWND) { Type(VK_ESCAPE); }},
      {"Alt+N", [](HWND) { TypeWithAlt('N'); }},
      {"the close box", ClickCloseBox},
  };
  for (const Way& way : ways) {
    SCOPED_TRACE(way.sName);
    way.take(OpenAgreement());
    EXPECT_EQ(launcher->WaitForEnd(), 0U);
    EXPECT_EQ(ReadKey("Copyright"), NoticeLines) << "written all the same";
  }
}

TEST_F(LauncherWindows, TheMenuEndsTheProgramInEachWay) {
  const Way ways[] = {
      {"Exit", [](HWND hWindow) { Click(ButtonIn(hWindow, "E&xit")); }},
      {"Esc", [](HWND) { Type(VK_ESCAPE); }},
      {"Alt+X", [](HWND) { TypeWithAlt('X'); }},
      {"the close box", ClickCloseBox},
  };
  for (const Way& way : ways) {
    SCOPED_TRACE(way.sName);
    way.take(OpenMenu().hForm);
    EXPECT_EQ(launcher->WaitForEnd(), 0U);
  }
}

}  // namespace
}  // namespace end_to_end
