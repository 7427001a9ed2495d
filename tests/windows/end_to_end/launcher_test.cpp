// What only another process can show: windows, input, programs and records as the
// system has them.

#include "tests/windows/end_to_end/launcher.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include "tests/windows/end_to_end/desktop.h"
#include "tests/windows/end_to_end/suite_folder.h"

namespace end_to_end {
namespace {

constexpr const char* AgreementTitle = "Microsoft Product Integration Agreement";
constexpr const char* MenuTitle = "Trelin Setup";

// Each test has a suite of its own and ends what it has started.
class LauncherWindows : public ::testing::Test {
 protected:
  static void ExpectBegin(const std::string& sText, const std::string& sBegin) {
    EXPECT_EQ(sText.substr(0, sBegin.size()), sBegin);
  }

  // Of the texts that the menu shows.
  static void ExpectMenu(const std::string& sBegin, std::chrono::milliseconds limit = LongestWait) {
    const HWND hMenu = Window(MenuTitle);
    Within(limit, [&] { return TextsIn(hMenu, "Static").starts_with(sBegin); });
    ExpectBegin(TextsIn(hMenu, "Static"), sBegin);
  }

  SuiteFolder suite;
  std::optional<Launcher> launcher;
};

TEST_F(LauncherWindows, ASuiteIsInstalled) {
  launcher.emplace(suite / "trelin.exe", (suite / "Disc 1").wstring());
  Window(AgreementTitle);
  Type(VK_RETURN);
  const std::string sBase = "Base System\n\nInstalled\nProbe Head\n\n";
  ExpectMenu(sBase + "An older revision is installed\nCamera\n");
  EXPECT_EQ(suite.Notice("NumLines"), "5");
  ExpectBegin(suite.Notice("Line5"), "With questions, please turn to the supplier of");

  const auto labels = ControlsIn(Window(MenuTitle), "Static");
  Click(labels.at(0));
  TypeWithAlt('R');
  const HWND hReadMe = Window("Read Me - base.txt");
  EXPECT_EQ(TextsIn(hReadMe, "Edit"), "About the base system.\n");
  Type(VK_ESCAPE);
  EXPECT_TRUE(Within(LongestWait, [&] { return !IsWindow(hReadMe); }));
  Window(MenuTitle);
  TurnWheel(labels.at(5), -3);
  ExpectMenu("Probe Head\n");
  TurnWheel(labels.at(5), 1);
  ExpectMenu("Base System\n");

  Click(labels.at(4));  // a description
  const auto boxes = ControlsIn(Window(MenuTitle), "TrelinPictureBox");
  Click(boxes.at(4));  // the icon of the second row: list, row, icon, row, icon
  Window("Demonstration Setup");
  const std::filesystem::path checkFile = suite / "Disc 1\\Installed\\TESTPROBE.txt";
  EXPECT_TRUE(Within(LongestWait, [&] { return std::filesystem::exists(checkFile); }));
  ExpectMenu(sBase + "Installed\n", std::chrono::milliseconds(2500 + 500));
  EXPECT_EQ(suite.Record("TESTPROBE"), "2.1");
  EXPECT_EQ(suite.Record("TESTPROBECheckFile"), checkFile.string());
  Type(VK_ESCAPE);
  EXPECT_EQ(launcher->WaitForEnd(), 0U);
}

// Into a folder that is made for it.
std::filesystem::path CopyTo(const std::filesystem::path& folder, const SuiteFolder& suite) {
  std::filesystem::create_directories(folder);
  std::filesystem::copy_file(suite / "trelin.exe", folder / "trelin.exe");
  return folder / "trelin.exe";
}

// What the code page lacks is no reason to miss the program's own folder, and one not to
// take a similar folder for that of the command line.
TEST_F(LauncherWindows, FoldersOfUnusualNamesAreUsedOrNamed) {
  std::wstring sLong = (suite / "Long").wstring();
  sLong.append(200 - sLong.size(), L'x').append(L"\\").append(46, L'x');  // 247 characters
  const struct {
    std::filesystem::path program;
    const wchar_t* pArguments;
    const char* pText;
  } cases[] = {
      {CopyTo(sLong, suite), L"", "\": its path is too long"},
      {CopyTo(suite / "Disc 1" / L"\x0141\x03A9", suite), L"",
       "The string library ENU35000.DLL is missing from the folder of Trelin"},
      {suite / "trelin.exe", L"D:\\\x03A9",
       "Could not use the folder on the command line \"D:\\O\": its name holds characters"},
  };
  for (const auto& c : cases) {
    launcher.emplace(c.program, c.pArguments);
    const std::string sText = TextsIn(Window("Error at Trelin"), "Static");
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
  for (const auto& [sTitle, key] :
       {std::pair(AgreementTitle, WORD{VK_RETURN}), {MenuTitle, WORD{VK_ESCAPE}}}) {
    EnumChildWindows(Window(sTitle), AskForObject, 0);
    Type(key);
  }
  EXPECT_EQ(launcher->WaitForEnd(), 0U);
}

}  // namespace
}  // namespace end_to_end
