// The menu in use, with the mouse and the keyboard.

#include <cstdint>
#include <iostream>
#include <vector>

#include "tests/windows/end_to_end/launcher_test.h"

namespace end_to_end {
namespace {

constexpr const char* InstallerCaption = "Demonstration Setup";
constexpr const char* FirstRows = "Base System, Probe Head, Camera, Gears";
constexpr const char* LastRows = "Gears, Reports & Labels, Handbook, Archive";

class LauncherMenu : public LauncherTest {
 protected:
  static void ExpectTitles(const Menu& menu, const char* sTitles, const char* sWhen) {
    ExpectSoon(std::string(sTitles), sWhen, [&] { return menu.Titles(); });
  }

  static void ExpectStatus(const Menu& menu, int nRow, const char* sStatus) {
    ExpectSoon(std::string(sStatus), "the status of row " + NumberOf(nRow),
               [&] { return TextOf(menu.rows.at(nRow).hStatus); });
  }

  static void ExpectSunken(const Menu& menu, bool bSunken, const char* sWhen) {
    ExpectSoon(bSunken, sWhen, [&] { return menu.IsSunken(0); });
  }

  static void ExpectFocus(const Menu& menu, HWND hControl, const char* sAfter) {
    ExpectSoon(hControl, std::string("after ") + sAfter,
               [&] { return FocusedControl(menu.hForm); });
  }

  static void ExpectGone(HWND hWindow) {
    ExpectSoon(FALSE, "a window that was closed", [&] { return IsWindow(hWindow); });
  }

  static void CloseWithEsc(HWND hWindow) {
    Type(VK_ESCAPE);
    ExpectGone(hWindow);
  }

  void ExpectInstaller(const char* sWhen) const {
    EXPECT_NO_THROW(launcher->Window(FormClass, InstallerCaption)) << sWhen;
  }
};

TEST_F(LauncherMenu, SelectsTheProductThatIsPressed) {
  const Menu menu = OpenMenu();
  ExpectTitles(menu, FirstRows, "at first");
  ExpectStatus(menu, 0, "Installed");
  ExpectStatus(menu, 1, "An older revision is installed");
  ExpectStatus(menu, 2, "A newer revision is installed");
  ExpectStatus(menu, 3, "Installation incomplete: a file is missing");
  EXPECT_FALSE(IsWindowEnabled(menu.hSetup) || IsWindowEnabled(menu.hReadMe)) << "at first";
  Type(VK_RETURN);

  Select(menu, 0);
  EXPECT_TRUE(IsWindowEnabled(menu.hSetup)) << "a product is selected";
  EXPECT_TRUE(IsWindowEnabled(menu.hReadMe)) << "it has a read-me program";
  EXPECT_EQ(PixelOf(menu.rows[0].hIcon, MiddleOf(menu.rows[0].hIcon)), RGB(255, 0, 0));
  Select(menu, 1);
  EXPECT_FALSE(menu.IsCyan(0)) << "another one is selected";
  EXPECT_FALSE(IsWindowEnabled(menu.hReadMe)) << "that one has no read-me program";
  EXPECT_EQ(launcher->StartedPrograms(), 0);
}

// How long ago a file was written.
std::int64_t MillisecondsSince(const std::filesystem::path& file) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data);
  FILETIME now{};
  GetSystemTimePreciseAsFileTime(&now);
  const auto ticks = [](const FILETIME& time) {
    return std::int64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
  };
  return (ticks(now) - ticks(data.ftLastWriteTime)) / 10000;
}

TEST_F(LauncherMenu, ShowsByItselfThatAProductHasBeenInstalled) {
  const Menu menu = OpenMenu();
  Select(menu, 1);
  Click(menu.hSetup);
  ExpectInstaller("Setup was pressed");
  ExpectStatus(menu, 1, "Installed");
  // The installer writes its check file just before its record.
  const std::int64_t nMilliseconds = MillisecondsSince(suite / "Installed\\PROBE.txt");
  std::cout << "The status changed " << nMilliseconds << " ms after the installation.\n";
  EXPECT_LE(nMilliseconds, 2500 + 500);
  auto log = ReadKey("InstallLog");
  EXPECT_EQ(log["PROBE"], "2.1");
  EXPECT_EQ(log["PROBECheckFile"], (suite / "Installed\\PROBE.txt").string());
}

TEST_F(LauncherMenu, AsksBeforeAnOlderRevisionIsInstalled) {
  const Menu menu = OpenMenu();
  Select(menu, 2);
  for (const int nAnswer : {IDNO, IDYES}) {
    Click(menu.hSetup);
    const HWND hQuestion = launcher->MessageBox(MenuCaption);
    const std::string sText = TextIn(hQuestion);
    EXPECT_EQ(sText.rfind("A newer revision of this product is installed", 0), 0U) << sText;
    EXPECT_EQ(ControlsIn(hQuestion, "Button").size(), 2U);
    EXPECT_EQ(GetWindow(hQuestion, GW_OWNER), menu.hForm);
    EXPECT_EQ(launcher->StartedPrograms(), 0);
    Click(GetDlgItem(hQuestion, nAnswer));
    ExpectGone(hQuestion);
  }
  ExpectInstaller("the answer was Yes");
  EXPECT_EQ(launcher->StartedPrograms(), 1);
}

TEST_F(LauncherMenu, SaysWhyAProductCannotBeInstalled) {
  const Menu menu = OpenMenu();
  TurnWheel(menu.hList, -3);
  ExpectTitles(menu, LastRows, "the wheel was turned");
  const char* const sUnmet = "Setup Cannot Start Yet";
  const struct {
    const char *sTitle, *sText;
  } reasons[] = {
      {sUnmet,
       "A product that this one needs is installed, but its revision is too old: \"Probe "
       "Head\".\n\n"
       "Revision \"2.1\" or a newer one is needed, and revision \"2.0\" is installed."},
      {sUnmet, "A product that this one needs is incomplete: \"Gears\"."},
      {MenuCaption, "The setup list names no installer for this product."},
      {sUnmet, "A product that this one needs is not installed, or not completely: \"Reports\"."},
  };
  for (int nRow = 0; nRow < 4; ++nRow) {
    SCOPED_TRACE("row " + NumberOf(nRow));
    Select(menu, nRow);
    Type(VK_RETURN);
    const HWND hReason = launcher->MessageBox(reasons[nRow].sTitle);
    EXPECT_EQ(TextIn(hReason).substr(0, std::string(reasons[nRow].sText).size()),
              reasons[nRow].sText);
    EXPECT_EQ(ControlsIn(hReason, "Button").size(), 1U);
    CloseWithEsc(hReason);
  }
  EXPECT_EQ(launcher->StartedPrograms(), 0);
}

TEST_F(LauncherMenu, StartsProgramsFromTheirFolders) {
  std::filesystem::create_directory(suite / "Disc 1");
  std::filesystem::copy(suite / "TRELIN.CFG", suite / "Disc 1\\TRELIN.CFG");
  std::filesystem::rename(suite / "base_setup.exe", suite / "Disc 1\\base_setup.exe");
  const Menu menu = OpenMenu((suite / "Disc 1").wstring());
  Select(menu, 0);
  Click(menu.hReadMe);
  const HWND hReadMe = launcher->Window(FormClass, "Read Me - base.txt");
  EXPECT_EQ(TextOf(ControlsIn(hReadMe, "Edit").at(0)), "About the base system.");
  CloseWithEsc(hReadMe);
  BringToFront(menu.hForm);
  Click(menu.hSetup);
  ExpectInstaller("it lies in the folder that the command line names");
}

TEST_F(LauncherMenu, AnIconIsAButtonThatCanBeLeft) {
  const Menu menu = OpenMenu();
  const HWND hIcon = menu.rows[0].hIcon;
  const POINT outside = {-10, 40};
  ExpectSunken(menu, false, "at first");
  PressAt(hIcon, MiddleOf(hIcon));
  ExpectSunken(menu, true, "pressed");
  EXPECT_TRUE(menu.IsCyan(0)) << "a press selects";
  MoveTo(hIcon, outside);
  ExpectSunken(menu, false, "the pointer has left it");
  MoveTo(hIcon, MiddleOf(hIcon));
  ExpectSunken(menu, true, "the pointer is back");
  ReleaseAt(hIcon, outside);
  ExpectSunken(menu, false, "released outside");
  Select(menu, 1);
  EXPECT_EQ(launcher->StartedPrograms(), 0) << "released outside";

  Click(hIcon);
  ExpectInstaller("released inside");
}

TEST_F(LauncherMenu, ScrollsWithKeysThumbAndWheel) {
  const Menu menu = OpenMenu();
  const SCROLLINFO range = menu.Scrolling();
  EXPECT_EQ(range.nMin, 1);
  EXPECT_EQ(range.nMax, 7) << "the last row";
  EXPECT_EQ(range.nPage, 4U);

  Type(VK_TAB);
  ExpectFocus(menu, menu.hScrollBar, "Tab from the list");
  Type(VK_NEXT);
  ExpectTitles(menu, LastRows, "Page Down");
  Type(VK_PRIOR);
  ExpectTitles(menu, FirstRows, "Page Up");

  const POINT thumb = {5, GetSystemMetrics(SM_CYVSCROLL) + 20};
  const POINT below = {5, InsideOf(menu.hScrollBar).cy - 30};
  PressAt(menu.hScrollBar, thumb);
  MoveTo(menu.hScrollBar, below);
  ExpectTitles(menu, LastRows, "while the thumb is dragged");
  ReleaseAt(menu.hScrollBar, below);
  TurnWheel(menu.rows[2].hDescription, 1);
  ExpectTitles(menu, "Camera, Gears, Reports & Labels, Handbook", "the wheel was turned");
}

TEST_F(LauncherMenu, CanBeUsedByKeyboard) {
  const Menu menu = OpenMenu();
  Select(menu, 0);
  for (const HWND hNext : {menu.rows[0].hIcon, menu.hSetup, menu.hReadMe, menu.hExit,
                           menu.hScrollBar, menu.rows[0].hBox}) {
    Type(VK_TAB);
    ExpectFocus(menu, hNext, "Tab");
  }
  Type(VK_END);
  ExpectTitles(menu, LastRows, "End");
  Type(VK_HOME);
  ExpectTitles(menu, FirstRows, "Home");
  TypeWithAlt('R');
  CloseWithEsc(launcher->Window(FormClass, "Read Me - base.txt"));
  BringToFront(menu.hForm);
  TypeWithAlt('S');
  ExpectInstaller("Alt+S");
}

}  // namespace
}  // namespace end_to_end
