#include "systems/host/host_process.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "systems/host/host_path.h"
#include "testing/fake_platform.h"
#include "testing/temporary_folder.h"

namespace trelin {
namespace {

class HostProcessTest : public testing::Test {
 protected:
  void WriteProgram(const std::string& sName, const std::string& sText) const {
    folder.Write(sName, sText);
    std::filesystem::permissions(folder / sName, std::filesystem::perms::owner_all);
  }

  // Why the program does not start, without the words that are always there.
  static std::string Reason(const std::string& sCommandLine) {
    const std::string sReason = Failure([&] { StartHostProgram(sCommandLine); });
    EXPECT_TRUE(sReason.starts_with("Could not start the program \"")) << sReason;
    return sReason.substr(std::min<std::size_t>(sReason.size(), 29));
  }

  const TemporaryFolder folder;
};

TEST_F(HostProcessTest, StartsProgramWithItsArgumentsAndNothingElse) {
  WriteProgram("My S\u00e9tup.sh",
               "#!/bin/sh\n"
               "{ printf '<%s>\\n' \"$@\"; [ -e /proc/$$/fd/57 ] && echo open\n"
               "[ $(cut -d' ' -f6 /proc/self/stat) = " +
                   std::to_string(getsid(0)) +
                   " ] && echo 'same session'\n"
                   "grep Sig[BI] /proc/self/status; } >\"$0.tmp\"; mv \"$0.tmp\" \"$0.out\"\n");
  EXPECT_EQ(dup2(STDERR_FILENO, 57), 57);
  signal(SIGUSR1, SIG_IGN);
  StartHostProgram(ProgramPath(folder / "MY S\u00c9TUP.sh") + " \"a b\" \xE9\\");
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left";
  signal(SIGUSR1, SIG_DFL);
  close(57);
  const std::string sOutput = folder / "My S\u00e9tup.sh.out";
  for (int i = 0; i < 1000 && !std::filesystem::exists(sOutput); ++i) usleep(10'000);
  EXPECT_EQ(FileBytes(sOutput),
            "<a b>\n<\u00e9\\>\nSigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n");
}

TEST_F(HostProcessTest, SaysWhyProgramDoesNotStart) {
  folder.Write("Plain.sh", "#!/bin/sh\n");
  WriteProgram("Text", "Menus: no program");
  WriteProgram("Setup.exe", "MZ\x90");
  WriteProgram("Script", "#!/nowhere/sh\n");
  const std::string sFolder = ProgramPath(folder / "");
  const std::string cases[][3] = {
      {'"' + sFolder + "my gone\" x", "my gone", "No such file or directory"},
      {sFolder + "my gone x", "my gone x", "No such file or directory"},
      {'"' + sFolder + '"', "", "it is a folder, not a program"},
      {sFolder + "PLAIN.sh x", "Plain.sh", "the file is not marked as executable"},
      {sFolder + "text", "Text", "it is not a program that this system can run"},
      {sFolder + "setup.EXE", "Setup.exe", "it is a Windows program, which this system cannot run"},
      {sFolder + "script", "Script", "the interpreter that it asks for is missing"},
      {sFolder + std::string("Text\0", 5), "Text?", "it holds a NUL character"},
  };
  for (const auto& [sCommandLine, sShown, sReason] : cases)
    EXPECT_EQ(Reason(sCommandLine), folder / sShown + "\": " + sReason + ".");
}

// The current folder is that of the program.
TEST_F(HostProcessTest, StartsNothingWithoutAFullPath) {
  WriteProgram("Setup.sh", "#!/bin/sh\n");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder / "");
  const char* const cases[][2] = {
      {"\"\"\\My Suite\"\\setup\"", "\"\"/My Suite\"/setup\""},
      {"", ""},
      {"setup.sh x", "Setup.sh"},
      {"\".\\Setup.sh\"", "./Setup.sh"},
  };
  for (const auto& [sCommandLine, sShown] : cases)
    EXPECT_EQ(Reason(sCommandLine),
              sShown + std::string("\": it is not a full path; please start Trelin again and give "
                                   "the folder with its full path, such as /media/disk1."));
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace trelin
