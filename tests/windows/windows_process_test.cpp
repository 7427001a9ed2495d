#include "systems/windows/windows_process.h"

#include <windows.h>

#include "real_platform.h"
#include "systems/windows/windows_error.h"
#include "testing/fake_platform.h"
#include "testing/temporary_folder.h"

namespace trelin {
namespace {

const char* const ReportVariable = "TRELIN_TEST_REPORT";

// The test program is also the program that it starts. It then leaves its path
// and its command line in the file that the environment names.
void ReportIfStarted() {
  const char* const pReport = std::getenv(ReportVariable);
  if (pReport == nullptr) return;
  const std::string sPath = pReport;
  std::ofstream(sPath + ".new") << RunningProgram() << '|' << GetCommandLineA();
  std::filesystem::rename(sPath + ".new", sPath);
  std::_Exit(0);
}
[[maybe_unused]] const bool bReported = (ReportIfStarted(), true);

class WindowsProcessTest : public ::testing::Test {
 protected:
  WindowsProcessTest() {
    SetEnvironmentVariableA(ReportVariable, ProgramPath(sReport).c_str());
    for (const char* sName : {"My.exe", "My Suite/S\u00e9tup.exe"}) {
      folder.Write(sName, "");
      std::filesystem::copy_file(RunningProgram(), Utf8Path(folder / sName),
                                 std::filesystem::copy_options::overwrite_existing);
    }
  }
  // A program that is about to end still has its file.
  ~WindowsProcessTest() override {
    SetEnvironmentVariableA(ReportVariable, nullptr);
    std::error_code error(1, std::system_category());
    for (int i = 0; i < 1000 && error; ++i) {
      std::filesystem::remove_all(Utf8Path(folder / ""), error);
      if (error) Sleep(10);
    }
  }

  std::string Started(const std::string& sCommandLine) const {
    StartWindowsProgram(sCommandLine);
    std::string sText;  // a file that has just got its name may not open at once
    for (int i = 0; i < 1000 && sText.empty(); ++i) {
      Sleep(10);
      sText = FileBytes(sReport);
    }
    std::filesystem::remove(sReport);
    return sText;
  }

  // Why the program does not start, without the words that are always there.
  static std::string Reason(const std::string& sCommandLine) {
    const std::string sReason = Failure([&] { StartWindowsProgram(sCommandLine); });
    EXPECT_TRUE(sReason.starts_with("Could not start the program \"")) << sReason;
    return sReason.substr(std::min<std::size_t>(sReason.size(), 29));
  }

  const TemporaryFolder folder;
  const std::string sReport = folder / "report";
  const std::string sFolder = ProgramPath(folder / "");
};

TEST_F(WindowsProcessTest, StartsTheProgramThatIsMeantWithItsCommandLine) {
  const std::string sMy = sFolder + "My.exe";
  const std::string sSetup = sFolder + "My Suite\\S\xE9tup.exe";
  const std::string sWithout = sFolder + "My Suite\\S\xE9tup";
  const std::string cases[][3] = {
      {'"' + sSetup + "\"  \"a b\" \xE9\\ ", sSetup, '"' + sSetup + "\"  \"a b\" \xE9\\ "},
      {sSetup + " x", sSetup, '"' + sSetup + "\" x"},
      {sWithout + "  x", sSetup, '"' + sWithout + "\"  x"},
      {sFolder + "My x", sMy, sFolder + "My x"},
  };
  for (const auto& [sCommandLine, sProgram, sPassedOn] : cases)
    EXPECT_EQ(Started(sCommandLine), sProgram + '|' + sPassedOn);
}

TEST_F(WindowsProcessTest, SaysWhyProgramDoesNotStart) {
  folder.Write("Text", "no program");
  folder.Write("Named/.exe", "no program");
  const std::string sMissing = SystemReason(ERROR_FILE_NOT_FOUND);
  const std::string cases[][3] = {
      {'"' + sFolder + "our gone\" x", "our gone", sMissing},
      {sFolder + "our gone x", "our gone x", sMissing},
      {'"' + sFolder + "My Suite\"", "My Suite", "it is a folder, not a program"},
      {'"' + sFolder + "Named\\\"", "Named\\", "it is a folder, not a program"},
      {sFolder + "Text x", "Text", "it is not a program that this system can run"},
      {sFolder + std::string("Text\0", 5), "Text?", "it holds a NUL character"},
  };
  for (const auto& [sCommandLine, sShown, sReason] : cases)
    EXPECT_EQ(Reason(sCommandLine), sFolder + sShown + "\": " + sReason + ".");
}

// All of them name a program from the current folder.
TEST_F(WindowsProcessTest, StartsNothingWithoutAFullPath) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(Utf8Path(folder / "My Suite"));
  for (const char* sName : {".exe", "My.exe"}) std::filesystem::copy_file(RunningProgram(), sName);
  const std::string sRoot = sFolder.substr(2) + "My.exe", sDrive = sFolder.substr(0, 2) + "My.exe";
  const std::string cases[][2] = {
      {"\"\"D:\\My Suite\"\\setup.exe\"", "\"\"D:\\My Suite\"\\setup.exe\""},
      {"", ""},
      {"My.exe x", "My.exe"},
      {"\".\\My\"", ".\\My.exe"},
      {'"' + sRoot + '"', sRoot},
      {'"' + sDrive + '"', sDrive},
  };
  for (const auto& [sCommandLine, sShown] : cases)
    EXPECT_EQ(Reason(sCommandLine),
              sShown +
                  "\": it is not a full path; please start Trelin again and give the folder "
                  "with its full path, such as D:\\Disk1.");
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace trelin
