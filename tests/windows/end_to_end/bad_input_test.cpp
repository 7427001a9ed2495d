// Suites that are broken in one way or another: each gets a clear answer and
// an orderly end.

#include <functional>
#include <tuple>

#include "tests/windows/end_to_end/launcher_test.h"

namespace end_to_end {
namespace {

class LauncherBadInput : public LauncherTest {
 protected:
  std::function<void()> Remove(const char* sName) {
    return [this, sName] { std::filesystem::remove(suite / sName); };
  }
  std::function<void()> Write(const char* sName, const std::string& sText) {
    return [this, sName, sText] { suite.Write(sName, sText); };
  }
};

TEST_F(LauncherBadInput, GetsAClearAnswer) {
  const std::string sLibrary = suite.Read("ENU35000.DLL");
  const std::string sNoLibrary =
      "The string library ENU35000.DLL is missing from the folder of Trelin, or it is damaged.";
  const struct {
    const char* sCase;
    std::function<void()> breakIt;
    bool bAgreement;
    std::string sTitle, sText;
    bool bMenu = false;
  } cases[] = {
      {"an unknown entry", Write("TRELIN.CFG", "BLOCK SETUPLIST\r\nCOLOUR = 1\r\nEND"), true,
       "Setup List", "Trelin Setup does not know the entry \"COLOUR\"", true},
      {"a line without sense", Write("TRELIN.CFG", "BLOCK SETUPLIST\r\n\r\nSetup\r\nEND"), true,
       "BlockParse.GetToken", "Line 3 of the setup list TRELIN.CFG cannot be understood."},
      {"a wrong block", Write("TRELIN.CFG", "BLOCK SETUPLIST\r\nBLOCK DEPENDENCY"), true,
       "Setup List",
       "Line 2 of the setup list TRELIN.CFG should read \"BLOCK APPLICATION\", but it reads "
       "\"BLOCK DEPENDENCY\"."},
      {"zeros", Write("TRELIN.CFG", std::string(5000, '\0')), true, "BlockParse.GetToken",
       "Line 1 of the setup list TRELIN.CFG cannot be understood."},
      {"no setup list", Remove("TRELIN.CFG"), true, "Trelin",
       "Could not open the file \"" + (suite / "TRELIN.CFG").string() + "\": "},
      {"half a library", Write("ENU35000.DLL", sLibrary.substr(0, sLibrary.size() / 2)), false,
       "Error at Trelin", sNoLibrary},
      {"a library of zeros", Write("ENU35000.DLL", std::string(5000, '\0')), false,
       "Error at Trelin", sNoLibrary},
      {"no library", Remove("ENU35000.DLL"), false, "Error at Trelin", sNoLibrary},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.sCase);
    c.breakIt();
    launcher.emplace(suite / "trelin.exe");
    if (c.bAgreement) {
      launcher->Window(FormClass, AgreementCaption);
      Type(VK_RETURN);
    }
    const HWND hMessage = launcher->MessageBox(c.sTitle);
    EXPECT_EQ(TextIn(hMessage).substr(0, c.sText.size()), c.sText);
    Type(VK_RETURN);
    if (c.bMenu) {
      launcher->Window(FormClass, MenuCaption);
      Type(VK_ESCAPE);
    }
    EXPECT_EQ(launcher->WaitForEnd(), 0U);
  }
}

TEST_F(LauncherBadInput, IncludesFoldersThatItCannotUse) {
  std::wstring sFolder = (suite / "Long").wstring();
  sFolder.append(200 - sFolder.size(), L'x').append(L"\\").append(46, L'x');  // 247 characters
  std::filesystem::create_directories(sFolder);
  std::filesystem::copy_file(suite / "trelin.exe", sFolder + L"\\trelin.exe");
  const std::tuple<std::filesystem::path, const wchar_t*, const char*> cases[] = {
      {sFolder + L"\\trelin.exe", L"", "\": its path is too long"},
      {suite / "trelin.exe", L"D:\\\x03A9",
       "Could not use the folder on the command line \"D:\\O\": its name holds characters"},
  };
  for (const auto& [program, pArguments, pText] : cases) {
    launcher.emplace(program, pArguments);
    const std::string sText = TextIn(launcher->MessageBox("Error at Trelin"));
    EXPECT_NE(sText.find(pText), std::string::npos) << sText;
    Type(VK_RETURN);
    EXPECT_EQ(launcher->WaitForEnd(), 0U);
  }
}

}  // namespace
}  // namespace end_to_end
