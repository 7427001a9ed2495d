#include "tests/windows/end_to_end/suite_folder.h"

#include <windows.h>

#include <array>
#include <fstream>
#include <regex>
#include <sstream>

#include "tests/windows/end_to_end/reg_program.h"

namespace end_to_end {

namespace {

const char* const SetupList = R"(BLOCK SETUPLIST Suite
  TITLE = Test Suite
  BLOCK APPLICATION
    PRODUCT = Base System
    DESCRIPTION = The offered revision is installed.
    IMAGE = base.bmp
    PRODUCTCODE = BASE
    REVISION = 2.0
    INSTALLFILE = base_setup.exe
    READMEFILE = readme.exe base.txt
  END
  BLOCK APPLICATION
    PRODUCT = Probe Head
    DESCRIPTION = An older revision is installed; what it needs is there.
    PRODUCTCODE = PROBE
    REVISION = 2.1
    INSTALLFILE = probe_setup.exe
    BLOCK DEPENDENCY
      PRODUCTCODE = BASE
      REVISION = 1.0
      TITLE = Base System
    END
  END
  BLOCK APPLICATION
    PRODUCT = Camera
    DESCRIPTION = A newer revision is installed.
    PRODUCTCODE = CAMERA
    REVISION = 1.0
    INSTALLFILE = camera_setup.exe
  END
  BLOCK APPLICATION
    PRODUCT = Gears
    DESCRIPTION = The check file is missing; it needs a newer Probe Head.
    PRODUCTCODE = GEARS
    REVISION = 3.0
    INSTALLFILE = gears_setup.exe
    BLOCK DEPENDENCY
      PRODUCTCODE = PROBE
      REVISION = 2.1
      TITLE = Probe Head
    END
  END
  BLOCK APPLICATION
    PRODUCT = Reports & Labels
    DESCRIPTION = Not installed; it needs Gears, which is incomplete.
    PRODUCTCODE = REPORTS
    REVISION = 1.0
    INSTALLFILE = reports_setup.exe
    BLOCK DEPENDENCY
      PRODUCTCODE = GEARS
      REVISION = 3.0
      TITLE = Gears
    END
  END
  BLOCK APPLICATION
    PRODUCT = Handbook
    DESCRIPTION = Nothing to install.
    READMEFILE = readme.exe handbook.txt
  END
  BLOCK APPLICATION
    PRODUCT = Archive
    DESCRIPTION = Not installed; it needs what is not installed either.
    PRODUCTCODE = ARCHIVE
    REVISION = 1.0
    INSTALLFILE = archive_setup.exe
    BLOCK DEPENDENCY
      PRODUCTCODE = REPORTS
      REVISION = 1.0
      TITLE = Reports
    END
  END
END
)";

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

// A bitmap file: its two headers, then one pixel of pure red, 24 bits deep.
std::string RedPicture() {
  std::string sBytes(58, '\0');
  const std::pair<std::size_t, int> written[] = {
      {0, 'B'}, {1, 'M'}, {2, 58}, {10, 54}, {14, 40},
      {18, 1},  {22, 1},  {26, 1}, {28, 24}, {56, 255},
  };
  for (const auto& [nPlace, nByte] : written) sBytes[nPlace] = static_cast<char>(nByte);
  return sBytes;
}

}  // namespace

SuiteFolder::SuiteFolder(const std::filesystem::path& folder) : folder_(folder) {
  std::filesystem::create_directory(folder_);
}

// From here on the folder is removed also when something fails.
SuiteFolder::SuiteFolder()
    : SuiteFolder(std::filesystem::temp_directory_path() /
                  ("Trelin suite " + std::to_string(GetCurrentProcessId()))) {
  PutPrograms();
  Write("TRELIN.CFG", SetupList);
  Write("base.txt", "About the base system.");
  Write("base.bmp", RedPicture());
  PutRecords();
}

SuiteFolder::~SuiteFolder() {
  std::error_code ignored;  // a program that does not end keeps its file
  std::filesystem::remove_all(folder_, ignored);
}

void SuiteFolder::PutPrograms() const {
  for (const char* sName : {"trelin.exe", "ENU35000.DLL", "readme.exe"})
    std::filesystem::copy(BuildFolder() / sName, folder_ / sName);
  for (const char* sProduct : {"base", "probe", "camera", "gears", "reports", "archive"})
    std::filesystem::copy(BuildFolder() / "demo_installer.exe",
                          folder_ / (sProduct + std::string("_setup.exe")));
}

void SuiteFolder::PutRecords() const {
  const std::string sFolder = std::regex_replace(folder_.string(), std::regex(R"(\\)"), R"(\\)");
  Write("records.reg", std::regex_replace(Records, std::regex("@SUITE@"), sFolder));
  ImportRecords(folder_ / "records.reg");
}

void SuiteFolder::Write(const std::string& sName, const std::string& sText) const {
  std::ofstream(folder_ / sName, std::ios::binary) << sText;
}

std::string SuiteFolder::Read(const std::string& sName) const {
  std::ostringstream bytes;
  bytes << std::ifstream(folder_ / sName, std::ios::binary).rdbuf();
  return bytes.str();
}

}  // namespace end_to_end
