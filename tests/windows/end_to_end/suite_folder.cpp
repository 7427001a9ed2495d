#include "tests/windows/end_to_end/suite_folder.h"

#include <windows.h>

#include <array>
#include <fstream>
#include <regex>
#include <sstream>

#include "tests/windows/end_to_end/reg_program.h"

namespace end_to_end {

namespace {

struct Product {
  const char *sTitle, *sCode, *sRevision, *sMore;
};

// In the order of the menu. Each but the Handbook has an installer.
const Product Products[] = {
    {"Base System", "BASE", "2.0", "IMAGE = base.bmp\nREADMEFILE = readme.exe base.txt\n"},
    {"Probe Head", "PROBE", "2.1",
     "BLOCK DEPENDENCY\nPRODUCTCODE = BASE\nREVISION = 1.0\nTITLE = Base System\nEND\n"},
    {"Camera", "CAMERA", "1.0", ""},
    {"Gears", "GEARS", "3.0",
     "BLOCK DEPENDENCY\nPRODUCTCODE = PROBE\nREVISION = 2.1\nTITLE = Probe Head\nEND\n"},
    {"Reports & Labels", "REPORTS", "1.0",
     "BLOCK DEPENDENCY\nPRODUCTCODE = GEARS\nREVISION = 3.0\nTITLE = Gears\nEND\n"},
    {"Handbook", "", "", ""},
    {"Archive", "ARCHIVE", "1.0",
     "BLOCK DEPENDENCY\nPRODUCTCODE = REPORTS\nREVISION = 1.0\nTITLE = Reports\nEND\n"},
};

std::string InstallerOf(const Product& product) {
  return *product.sCode == '\0' ? "" : product.sCode + std::string("_setup.exe");
}

std::string SetupList() {
  std::ostringstream list;
  list << "BLOCK SETUPLIST\n";
  for (const Product& product : Products)
    list << "BLOCK APPLICATION\nPRODUCT = " << product.sTitle << "\nPRODUCTCODE = " << product.sCode
         << "\nREVISION = " << product.sRevision << "\nINSTALLFILE = " << InstallerOf(product)
         << "\n"
         << product.sMore << "END\n";
  list << "END\n";
  return list.str();
}

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
  Write("TRELIN.CFG", SetupList());
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
  for (const Product& product : Products)
    if (const std::string sInstaller = InstallerOf(product); !sInstaller.empty())
      std::filesystem::copy(BuildFolder() / "demo_installer.exe", folder_ / sInstaller);
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
