#include "tests/windows/end_to_end/suite_folder.h"

#include <windows.h>

#include <array>
#include <fstream>
#include <regex>

#include "tests/windows/end_to_end/reg_program.h"

namespace end_to_end {

namespace {

const char* const SetupList = R"(BLOCK SETUPLIST
BLOCK APPLICATION
PRODUCT = Base System
PRODUCTCODE = BASE
REVISION = 2.0
READMEFILE = readme.exe base.txt
END
BLOCK APPLICATION
PRODUCT = Probe Head
PRODUCTCODE = PROBE
REVISION = 2.1
INSTALLFILE = PROBE_setup.exe
END
BLOCK APPLICATION
PRODUCT = Camera
PRODUCTCODE = CAMERA
REVISION = 1.0
INSTALLFILE = CAMERA_setup.exe
END
BLOCK APPLICATION
PRODUCT = Gears
PRODUCTCODE = GEARS
REVISION = 3.0
END
BLOCK APPLICATION
PRODUCT = Reports & Labels
INSTALLFILE = reports.exe
BLOCK DEPENDENCY
PRODUCTCODE = GEARS
REVISION = 3.0
TITLE = Gears
END
END
END
)";

// The same revision, an older one, a newer one, a missing check file.
const char* const Records = R"(REGEDIT4

[HKEY_LOCAL_MACHINE\SOFTWARE\Korvanta\InstallLog]
"BASE"="2.0"
"BASECheckFile"="@SUITE@\\base.txt"
"PROBE"="2.0"
"PROBECheckFile"="@SUITE@\\base.txt"
"CAMERA"="1.5"
"GEARS"="3.0"
"GEARSCheckFile"="@SUITE@\\gears.txt"
)";

std::filesystem::path BuildFolder() {
  std::array<wchar_t, MAX_PATH> path{};
  GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
  return std::filesystem::path(path.data()).parent_path();
}

}  // namespace

SuiteFolder::SuiteFolder()
    : folder_(std::filesystem::temp_directory_path() /
              ("Trelin suite " + std::to_string(GetCurrentProcessId()))) {
  std::filesystem::remove_all(folder_);  // of a run that was killed
  std::filesystem::create_directory(folder_);
  for (const char* sName : {"trelin.exe", "ENU35000.DLL", "readme.exe"})
    std::filesystem::copy(BuildFolder() / sName, folder_ / sName);
  std::filesystem::create_directory(folder_ / "Disc 1");
  for (const char* sName : {"PROBE_setup.exe", "CAMERA_setup.exe"})
    std::filesystem::copy(BuildFolder() / "demo_installer.exe", folder_ / "Disc 1" / sName);
  Write("TRELIN.CFG", SetupList);
  Write("Disc 1\\TRELIN.CFG", SetupList);
  Write("base.txt", "About the base system.");
  const std::string sFolder = std::regex_replace(folder_.string(), std::regex(R"(\\)"), R"(\\)");
  Write("records.reg", std::regex_replace(Records, std::regex("@SUITE@"), sFolder));
  RunReg("import \"" + (folder_ / "records.reg").string() + "\"");
}

SuiteFolder::~SuiteFolder() {
  std::error_code ignored;  // a program that does not end keeps its file
  std::filesystem::remove_all(folder_, ignored);
}

void SuiteFolder::Write(const std::string& sName, const std::string& sText) const {
  std::ofstream(folder_ / sName, std::ios::binary) << sText;
}

}  // namespace end_to_end
