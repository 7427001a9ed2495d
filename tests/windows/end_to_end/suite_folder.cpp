#include "tests/windows/end_to_end/suite_folder.h"

#include <windows.h>

#include <array>
#include <fstream>

namespace end_to_end {

namespace {

constexpr const char* NoticeKey = "SOFTWARE\\Korvanta\\Copyright";
constexpr const char* LogKey = "SOFTWARE\\Korvanta\\InstallLog";

// One more product than the menu has rows.
const char* const SetupList = R"(BLOCK SETUPLIST
BLOCK APPLICATION
PRODUCT = Base System
PRODUCTCODE = TESTBASE
REVISION = 2.0
READMEFILE = readme.exe base.txt
END
BLOCK APPLICATION
PRODUCT = Probe Head
PRODUCTCODE = TESTPROBE
REVISION = 2.1
INSTALLFILE = PROBE_setup.exe
END
BLOCK APPLICATION
PRODUCT = Camera
END
BLOCK APPLICATION
PRODUCT = Gears
END
BLOCK APPLICATION
PRODUCT = Reports & Labels
END
END
)";

std::filesystem::path BuildFolder() {
  std::array<wchar_t, MAX_PATH> path{};
  GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
  return std::filesystem::path(path.data()).parent_path();
}

std::string Text(const char* pKey, const std::string& sName) {
  std::array<char, 1024> text{};
  DWORD nSize = text.size();
  RegGetValueA(HKEY_LOCAL_MACHINE, pKey, sName.c_str(), RRF_RT_REG_SZ, nullptr, text.data(),
               &nSize);
  return text.data();
}

void SetRecord(const char* pName, const std::string& sText) {
  RegSetKeyValueA(HKEY_LOCAL_MACHINE, LogKey, pName, REG_SZ, sText.c_str(),
                  static_cast<DWORD>(sText.size() + 1));
}

}  // namespace

// The launcher writes the notice anew whenever it starts.
SuiteFolder::SuiteFolder()
    : folder_(std::filesystem::temp_directory_path() /
              ("Trelin suite " + std::to_string(GetCurrentProcessId()))) {
  std::filesystem::remove_all(folder_);  // of a run that was killed
  std::filesystem::create_directories(folder_ / "Disc 1");
  for (const char* sName : {"trelin.exe", "ENU35000.DLL", "readme.exe"})
    std::filesystem::copy(BuildFolder() / sName, folder_ / sName);
  std::filesystem::copy(BuildFolder() / "demo_installer.exe", folder_ / "Disc 1\\PROBE_setup.exe");
  for (const char* sName : {"TRELIN.CFG", "Disc 1\\TRELIN.CFG"}) Write(sName, SetupList);
  Write("base.txt", "About the base system.");
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, NoticeKey);
  SetRecord("TESTBASE", "2.0");
  SetRecord("TESTBASECheckFile", (folder_ / "base.txt").string());
  SetRecord("TESTPROBE", "2.0");
}

SuiteFolder::~SuiteFolder() {
  std::error_code ignored;  // a program that does not end keeps its file
  std::filesystem::remove_all(folder_, ignored);
  for (const char* pName : {"TESTBASE", "TESTBASECheckFile", "TESTPROBE", "TESTPROBECheckFile"})
    RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, LogKey, pName);
}

std::string SuiteFolder::Notice(const std::string& sName) { return Text(NoticeKey, sName); }

std::string SuiteFolder::Record(const std::string& sName) { return Text(LogKey, sName); }

void SuiteFolder::Write(const std::string& sName, const std::string& sText) const {
  std::ofstream(folder_ / sName, std::ios::binary) << sText;
}

}  // namespace end_to_end
