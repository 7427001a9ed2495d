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
  std::string sTitle, sCode, sRevision, sMore;
};

std::string Needs(const std::string& sCode, const std::string& sRevision,
                  const std::string& sTitle) {
  return "BLOCK DEPENDENCY\nPRODUCTCODE = " + sCode + "\nREVISION = " + sRevision +
         "\nTITLE = " + sTitle + "\nEND\n";
}

// In the order of the menu. Each but the Handbook has an installer.
const Product Products[] = {
    {"Base System", "BASE", "2.0", "IMAGE = base.bmp\nREADMEFILE = readme.exe base.txt\n"},
    {"Probe Head", "PROBE", "2.1", Needs("BASE", "1.0", "Base System")},
    {"Camera", "CAMERA", "1.0", ""},
    {"Gears", "GEARS", "3.0", Needs("PROBE", "2.1", "Probe Head")},
    {"Reports & Labels", "REPORTS", "1.0", Needs("GEARS", "3.0", "Gears")},
    {"Handbook", "", "", ""},
    {"Archive", "ARCHIVE", "1.0", Needs("REPORTS", "1.0", "Reports")},
};

std::string InstallerOf(const Product& product) {
  return product.sCode.empty() ? "" : product.sCode + "_setup.exe";
}

std::string SetupList() {
  std::string sList = "BLOCK SETUPLIST\n";
  for (const Product& product : Products)
    sList += "BLOCK APPLICATION\nPRODUCT = " + product.sTitle + "\nPRODUCTCODE = " + product.sCode +
             "\nREVISION = " + product.sRevision + "\nINSTALLFILE = " + InstallerOf(product) +
             "\n" + product.sMore + "END\n";
  return sList + "END\n";
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
