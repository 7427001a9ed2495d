#include "systems/host/host_process.h"

#include <sys/wait.h>
#include <unistd.h>

#include "systems/host/host_path.h"
#include "testing/temporary_folder.h"

namespace trelin {
namespace {

TEST(HostProcessTest, StartsProgramWithItsArgumentsAndNothingElse) {
  const TemporaryFolder folder;
  folder.Write("My S\u00e9tup.sh",
               "#!/bin/sh\n"
               "{ printf '<%s>\\n' \"$@\"; [ -e /proc/$$/fd/57 ] && echo open\n"
               "grep SigBlk /proc/self/status; } >\"$0.tmp\"; mv \"$0.tmp\" \"$0.out\"\n");
  std::filesystem::permissions(folder / "My S\u00e9tup.sh", std::filesystem::perms::owner_all);
  EXPECT_EQ(dup2(STDERR_FILENO, 57), 57);
  StartHostProgram(ProgramPath(folder / "MY S\u00c9TUP.sh") + " \"a b\" \xE9\\");
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left";
  close(57);
  const std::string sOutput = folder / "My S\u00e9tup.sh.out";
  for (int i = 0; i < 1000 && !std::filesystem::exists(sOutput); ++i) usleep(10'000);
  EXPECT_EQ(FileBytes(sOutput), "<a b>\n<\u00e9\\>\nSigBlk:\t0000000000000000\n");
}

TEST(HostProcessTest, SaysWhyProgramDoesNotStart) {
  const TemporaryFolder folder;
  folder.Write("Plain.sh", "#!/bin/sh\n");
  folder.Write("Text", "no program");
  folder.Write("Setup.exe", "MZ\x90");
  folder.Write("Script", "#!/nowhere/sh\n");
  for (const char* sName : {"Text", "Setup.exe", "Script"})
    std::filesystem::permissions(folder / sName, std::filesystem::perms::owner_all);
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
  for (const auto& [sCommandLine, sShown, sReason] : cases) {
    try {
      StartHostProgram(sCommandLine);
      ADD_FAILURE() << sCommandLine;
    } catch (const PlatformError& error) {
      EXPECT_EQ(error.what(),
                "Could not start the program \"" + (folder / sShown) + "\": " + sReason + ".");
    }
  }
}

// The current folder is that of the program.
TEST(HostProcessTest, StartsNothingWithoutAFullPath) {
  const TemporaryFolder folder;
  folder.Write("Setup.sh", "#!/bin/sh\n");
  std::filesystem::permissions(folder / "Setup.sh", std::filesystem::perms::owner_all);
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder / "");
  const char* const cases[][2] = {
      {"\"\"\\My Suite\"\\setup\"", "\"\"/My Suite\"/setup\""},
      {"", ""},
      {"setup.sh x", "Setup.sh"},
      {"\".\\Setup.sh\"", "./Setup.sh"},
  };
  for (const auto& [sCommandLine, sShown] : cases) {
    try {
      StartHostProgram(sCommandLine);
      ADD_FAILURE() << sCommandLine;
    } catch (const PlatformError& error) {
      const std::string sBegin =
          std::string("Could not start the program \"") + sShown + "\": it is not a full path";
      EXPECT_EQ(std::string(error.what()).substr(0, sBegin.size()), sBegin);
    }
  }
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace trelin
