// What only another process can show: windows, input, programs and records as the
// system has them.

#include "tests/windows/end_to_end/launcher_test.h"

#include <cstdlib>
#include <iostream>

namespace end_to_end {
namespace {

constexpr const char* InstallerCaption = "Demonstration Setup";

class LauncherWindows : public LauncherTest {
 protected:
  static void ExpectText(const Menu& menu, const std::string& sText, const char* sWhen) {
    Within(LongestWait, [&] { return menu.Text() == sText; });
    EXPECT_EQ(menu.Text(), sText) << sWhen;
  }

  static void ExpectTop(const Menu& menu, const std::string& sTitle, const char* sWhen) {
    EXPECT_TRUE(Within(LongestWait, [&] { return TextOf(menu.rows[0].hTitle) == sTitle; }))
        << sWhen;
  }

  static void ExpectGone(HWND hWindow) {
    EXPECT_TRUE(Within(LongestWait, [&] { return !IsWindow(hWindow); }));
  }
};

TEST_F(LauncherWindows, ASuiteIsInstalled) {
  const Menu menu = OpenMenu((suite / "Disc 1").wstring());
  const std::string sNotice = ReadKey("Copyright");
  for (const char* pLine : {"NumLines=5\n", "Line5=With questions, please turn to the supplier of"})
    EXPECT_NE(sNotice.find(pLine), std::string::npos) << sNotice;
  const std::string sBase = "Base System: Installed";
  const std::string sProbe = "Probe Head: An older revision is installed";
  const std::string sRest =
      "Camera: A newer revision is installed\nGears: Installation incomplete: a file is missing\n";
  ExpectText(menu, sBase + "\n" + sProbe + "\n" + sRest, "at first");

  Click(menu.rows[0].hTitle);
  ExpectText(menu, sBase + " <-\n" + sProbe + "\n" + sRest, "pressed");
  TypeWithAlt('R');
  const HWND hReadMe = launcher->Window(FormClass, "Read Me - base.txt");
  EXPECT_EQ(TextOf(ControlsIn(hReadMe, "Edit").at(0)), "About the base system.");
  Type(VK_ESCAPE);
  ExpectGone(hReadMe);
  BringToFront(menu.hForm);

  Click(menu.rows[1].hDescription);
  ExpectText(menu, sBase + "\n" + sProbe + " <-\n" + sRest, "the next one");
  EXPECT_EQ(launcher->StartedPrograms(), 1);
  Click(ButtonIn(menu.hForm, "&Setup"));
  launcher->Window(FormClass, InstallerCaption);
  const std::string sCheckFile = (suite / "Disc 1\\Installed\\PROBE.txt").string();
  EXPECT_TRUE(Within(LongestWait, [&] { return std::filesystem::exists(sCheckFile); }));
  EXPECT_TRUE(Within(std::chrono::milliseconds(2500 + 500), [&] {
    return TextOf(menu.rows[1].hStatus) == "Installed";
  })) << "the status is looked at every 2.5 seconds";
  const std::string sLog = ReadKey("InstallLog");
  EXPECT_NE(sLog.find("PROBE=2.1\n"), std::string::npos) << sLog;
  EXPECT_NE(sLog.find("PROBECheckFile=" + sCheckFile + "\n"), std::string::npos) << sLog;
}

TEST_F(LauncherWindows, MessagesStandOverTheMenu) {
  const Menu menu = OpenMenu((suite / "Disc 1").wstring());
  TurnWheel(menu.hList, -3);
  ExpectTop(menu, "Probe Head", "the wheel was turned");
  Click(menu.rows[3].hTitle);
  Type(VK_RETURN);
  const HWND hReason = launcher->MessageBox("Setup Cannot Start Yet");
  EXPECT_EQ(TextIn(hReason).substr(0, 50), "A product that this one needs is incomplete: \"Gear");
  Type(VK_ESCAPE);
  ExpectGone(hReason);

  Click(menu.rows[1].hDescription);
  for (const int nAnswer : {IDNO, IDYES}) {
    Click(ButtonIn(menu.hForm, "&Setup"));
    const HWND hQuestion = launcher->MessageBox(MenuCaption);
    const std::string sText = TextIn(hQuestion);
    EXPECT_EQ(sText.rfind("A newer revision of this product is installed", 0), 0U) << sText;
    EXPECT_EQ(ControlsIn(hQuestion, "Button").size(), 2U);
    EXPECT_EQ(GetWindow(hQuestion, GW_OWNER), menu.hForm);
    EXPECT_EQ(launcher->StartedPrograms(), 0);
    Click(GetDlgItem(hQuestion, nAnswer));
    ExpectGone(hQuestion);
  }
  launcher->Window(FormClass, InstallerCaption);
  EXPECT_EQ(launcher->StartedPrograms(), 1);
  BringToFront(menu.hForm);

  Type(VK_ESCAPE);
  EXPECT_EQ(launcher->WaitForEnd(), 0U);
}

TEST_F(LauncherWindows, TheMouseHoldsAnIconAndTheThumb) {
  const Menu menu = OpenMenu();
  const HWND hIcon = menu.rows[1].hIcon;
  const POINT outside = {-10, 40};
  const auto expectSunken = [&](bool bSunken, const char* sWhen) {
    const auto isSunken = [&] { return PixelOf(hIcon, {0, 40}) == GetSysColor(COLOR_3DDKSHADOW); };
    EXPECT_TRUE(Within(LongestWait, [&] { return isSunken() == bSunken; })) << sWhen;
  };
  PressAt(hIcon, MiddleOf(hIcon));
  expectSunken(true, "pressed");
  MoveTo(hIcon, outside);
  expectSunken(false, "the pointer has left it");
  MoveTo(hIcon, MiddleOf(hIcon));
  expectSunken(true, "the pointer is back");
  ReleaseAt(hIcon, outside);
  expectSunken(false, "released outside");

  const POINT thumb = {5, GetSystemMetrics(SM_CYVSCROLL) + 20};
  const POINT below = {5, 2 * MiddleOf(menu.hScrollBar).y - 30};
  PressAt(menu.hScrollBar, thumb);
  MoveTo(menu.hScrollBar, below);
  ExpectTop(menu, "Probe Head", "while the thumb is dragged");
  ReleaseAt(menu.hScrollBar, below);
  TurnWheel(menu.rows[2].hDescription, 1);
  ExpectTop(menu, "Base System", "the wheel was turned");
  EXPECT_EQ(launcher->StartedPrograms(), 0);
}

TEST_F(LauncherWindows, FoldersThatItCannotUseAreNamed) {
  std::wstring sLong = (suite / "Long").wstring();
  sLong.append(200 - sLong.size(), L'x').append(L"\\").append(46, L'x');  // 247 characters
  std::filesystem::create_directories(sLong);
  for (const std::filesystem::path& folder : {std::filesystem::path(sLong), suite / "Disc 1"})
    std::filesystem::copy_file(suite / "trelin.exe", folder / "trelin.exe");
  const struct {
    std::filesystem::path program;
    const wchar_t* pArguments;
    const char* pText;
  } cases[] = {
      {sLong + L"\\trelin.exe", L"", "\": its path is too long"},
      {suite / "trelin.exe", L"D:\\\x03A9",
       "Could not use the folder on the command line \"D:\\O\": its name holds characters"},
      {suite / "Disc 1\\trelin.exe", L"", "The string library ENU35000.DLL is missing from the"},
  };
  for (const auto& c : cases) {
    launcher.emplace(c.program, c.pArguments);
    const std::string sText = TextIn(launcher->MessageBox("Error at Trelin"));
    EXPECT_NE(sText.find(c.pText), std::string::npos) << sText;
    Type(VK_RETURN);
    EXPECT_EQ(launcher->WaitForEnd(), 0U);
  }
}

BOOL CALLBACK AskForObject(HWND hWindow, LPARAM) {
  DWORD_PTR result = 0;
  SendMessageTimeoutA(hWindow, WM_GETOBJECT, 0, OBJID_CLIENT, SMTO_NORMAL, 10000, &result);
  return TRUE;
}

// A screen reader asks each control, for which the program loads what it needs to
// answer. tests/windows/check_planted names a program of its own.
TEST_F(LauncherWindows, AProgramIsUsedWithAScreenReader) {
  const char* const pProgram = std::getenv("TRELIN_USED_PROGRAM");
  launcher.emplace(pProgram != nullptr ? pProgram : suite / "trelin.exe");
  for (const auto& [sCaption, key] :
       {std::pair(AgreementCaption, WORD{VK_RETURN}), {MenuCaption, WORD{VK_ESCAPE}}}) {
    EnumChildWindows(launcher->Window(FormClass, sCaption), AskForObject, 0);
    Type(key);
  }
  EXPECT_EQ(launcher->WaitForEnd(), 0U);
}

}  // namespace
}  // namespace end_to_end
