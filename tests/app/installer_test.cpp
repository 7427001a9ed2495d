// An installer rewrites the installation log while the menu looks at it.

#include "tests/app/installer.h"

#include <filesystem>
#include <set>

#include "app/start_up.h"
#include "shared/modal_loop.h"
#include "suite/reg_entry.h"
#include "tests/app/real_program.h"

namespace trelin {
namespace {

constexpr int Rewrites = 10'000;
constexpr int RewritesAnInstallation = 8;

// Leaves the record of an older revision.
void Install(const std::string& sFolder) {
  const std::string sCheckFile = sFolder + "check.txt";
  RegEntry objLog;
  objLog.CreateKey("InstallLog");
  objLog.SetString("TRELINTEST", "1");
  objLog.SetString("TRELINTESTCheckFile", ProgramPath(sCheckFile));
  std::ofstream{Utf8Path(sCheckFile)};
  objLog.SetString("TRELINTEST", "2");
  objLog.SetString("TRELINTEST", "0.9");
}

// Removes the log, too, unless it records other products.
void Uninstall(const std::string& sFolder) {
  RegEntry objLog;
  objLog.CreateKey("InstallLog");
  std::filesystem::remove(Utf8Path(sFolder + "check.txt"));
  objLog.DeleteValue("TRELINTEST");
  objLog.DeleteValue("TRELINTESTCheckFile");
  RegistryKey hKey = RegistryKey::None;
  const std::string sKey = objLog.DefaultRoot() + "\\InstallLog";
  TheRegistry().OpenKey(RegistryKey::LocalMachine, sKey, RegistryReadWrite, hKey);
  char cName = 0;
  std::uint32_t lName = 1;
  std::uint32_t lData = 0;
  const bool bEmpty =
      TheRegistry().EnumValue(hKey, 0, &cName, lName, &cName, lData) == RegistryNoMoreItems;
  TheRegistry().CloseKey(hKey);
  if (bEmpty) TheRegistry().DeleteKey(RegistryKey::LocalMachine, sKey);
}

class InstallerAtWork : public RealProgramWindow {};

TEST_F(InstallerAtWork, TheMenuShowsEachStatusAndFinallyTheTrueOne) {
  folder.Write("TRELIN.CFG",
               "BLOCK SETUPLIST\nBLOCK APPLICATION\nPRODUCTCODE = TRELINTEST\nREVISION = 1\n");
  std::set<std::string> seen;
  std::string sLast;
  const auto look = [&] {
    DispatchInput(MainMenu().Timer1.OnTimer);  // as a tick does
    sLast = Driver::ReadText(MainMenu().lblStatus[0]);
    seen.insert(sLast);
  };
  Run([&] {
    Driver::Click(MainMenu().lblStatus[0]);
    const std::string sProgram = system.RealSystem::ProgramFolder() + "\\trelin_tests";
    system.StartProgram("\"" + sProgram + "\" install \"" + (folder / "") + "\"");
    while (!std::filesystem::exists(Utf8Path(folder / "done"))) look();
    look();
    Driver::Type(Key::Escape);
  });
  EXPECT_EQ(system.sMessages, "");
  EXPECT_EQ(seen.size(), 5U) << testing::PrintToString(seen);
  EXPECT_EQ(sLast, "An older revision is installed");
  Uninstall(folder / "");
}

}  // namespace

bool ActAsInstaller(int argc, char** argv) {
  if (argc != 3 || std::string(argv[1]) != "install") return false;
  const std::string sFolder = argv[2];
  const std::unique_ptr<Registry> registry = RealRegistry(sFolder);
  RealLibraries libraries;
  RealSystem system;
  const PlatformScope scope({registry.get(), &libraries, &system});
  for (int i = 0; i < Rewrites; i += RewritesAnInstallation) {
    Uninstall(sFolder);
    Install(sFolder);
  }
  std::ofstream{Utf8Path(sFolder + "done")};
  return true;
}

}  // namespace trelin
