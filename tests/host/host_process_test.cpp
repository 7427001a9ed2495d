#include "platform/host/host_process.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <iterator>
#include <thread>
#include <utility>

#include "platform/host/host_path.h"
#include "platform/platform_error.h"
#include "tests/host/temporary_folder.h"

namespace trelin {
namespace {

void MakeExecutable(const std::string& sHostPath) {
  std::filesystem::permissions(sHostPath, std::filesystem::perms::owner_all);
}

// Waits for a started program to write sHostPath.
std::string ReadWhenThere(const std::string& sHostPath) {
  std::string sText;
  for (int i = 0; i < 1000 && sText.empty(); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    std::ifstream file(sHostPath);
    sText.assign(std::istreambuf_iterator<char>(file), {});
  }
  return sText;
}

TEST(HostProcessTest, StartsProgramWithItsArgumentsAndNothingElse) {
  const TemporaryFolder folder;
  folder.Write("My Suite/S\u00e9tup.sh",
               "#!/bin/sh\n"
               "{ printf '<%s>' \"$@\"; echo \" $TRELIN_TEST\"\n"
               "[ -e /proc/$$/fd/57 ] && echo open; pwd\n"
               "cut -d' ' -f6 /proc/$$/stat; } >\"$0.tmp\"; mv \"$0.tmp\" \"$0.out\"\n");
  MakeExecutable(folder / "My Suite/S\u00e9tup.sh");
  setenv("TRELIN_TEST", "passed on", 1);
  ASSERT_EQ(dup2(STDERR_FILENO, 57), 57);
  const auto before = signal(SIGUSR1, SIG_IGN);
  sigset_t blocked, mask;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGUSR2);
  sigprocmask(SIG_BLOCK, &blocked, &mask);

  StartHostProgram(ProgramPath(folder / "MY SUITE/S\u00c9TUP.sh") + " \"a b\" \xE9\\");
  StartHostProgram("\\bin\\cp /proc/self/status " + (folder / "status"));

  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left";
  sigprocmask(SIG_SETMASK, &mask, nullptr);
  signal(SIGUSR1, before);
  close(57);
  const std::string sOutput = ReadWhenThere(folder / "My Suite/S\u00e9tup.sh.out");
  const std::string sExpected =
      "<a b><\u00e9\\> passed on\n" + std::filesystem::current_path().string() + "\n";
  EXPECT_EQ(sOutput.substr(0, sExpected.size()), sExpected);
  EXPECT_NE(sOutput.substr(sExpected.size()), std::to_string(getsid(0)) + "\n");
  const std::string sStatus = ReadWhenThere(folder / "status");
  for (const char* sSignals : {"SigBlk:\t0000000000000000\n", "SigIgn:\t0000000000000000\n"}) {
    EXPECT_NE(sStatus.find(sSignals), std::string::npos) << sStatus;
  }
}

TEST(HostProcessTest, SaysWhyProgramDoesNotStart) {
  const TemporaryFolder folder;
  folder.Write("Plain.sh", "#!/bin/sh\n");
  for (const auto& [sName, sText] :
       {std::pair{"Text", "no program"}, {"Setup.exe", "MZ\x90"}, {"Script", "#!/nowhere/sh\n"}}) {
    folder.Write(sName, sText);
    MakeExecutable(folder / sName);
  }
  const std::string sFolder = ProgramPath(folder / "");
  const std::array<std::string, 3> cases[] = {
      {'"' + sFolder + "my gone\" x", "my gone", "No such file or directory"},
      {sFolder + "my gone x", "my gone x", "No such file or directory"},
      {'"' + sFolder + '"', "", "it is a folder, not a program"},
      {sFolder + "PLAIN.sh x", "Plain.sh", "the file is not marked as executable"},
      {sFolder + "text", "Text", "it is not a program that this system can run"},
      {sFolder + "setup.EXE", "Setup.exe", "it is a Windows program, which this system cannot run"},
      {sFolder + "script", "Script", "the interpreter that it asks for is missing"},
      {sFolder + std::string("Text\0", 5), "Text?", "it holds a NUL character"},
  };
  for (const auto& [sCommandLine, sShown, sReason] : cases) {
    try {
      StartHostProgram(sCommandLine);
      ADD_FAILURE() << sCommandLine;
    } catch (const PlatformError& error) {
      EXPECT_EQ(error.what(),
                "Could not start the program \"" + (folder / sShown) + "\": " + sReason + ".");
    }
  }
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left";
}

}  // namespace
}  // namespace trelin
