#include "systems/windows/windows_system.h"

#include <windows.h>

#include <string_view>

#include "seam/platform_error.h"
#include "shared/command_line.h"
#include "systems/windows/message_box.h"
#include "systems/windows/windows_files.h"
#include "systems/windows/windows_process.h"
#include "systems/windows/windows_text.h"

namespace trelin {

namespace {

// Behind it there is room for a backslash and ENU35000.DLL.
constexpr std::size_t LongestFolder = MAX_PATH - 14;

bool IsInCodePage(const std::wstring& sText) { return ToWide(FromWide(sText)) == sText; }

std::wstring WideRunningProgram() {
  std::wstring sPath(MAX_PATH, L'\0');
  for (;;) {
    const auto nSize = static_cast<DWORD>(sPath.size());
    const DWORD nLength = GetModuleFileNameW(nullptr, sPath.data(), nSize);
    sPath.resize(nLength < nSize ? nLength : 2 * nSize);
    if (nLength < nSize) return sPath;
  }
}

// The root of a drive keeps its backslash.
std::wstring FolderOf(const std::wstring& sPath) {
  const std::size_t nName = sPath.rfind(L'\\') + 1;
  const bool bRoot = nName >= 2 && sPath[nName - 2] == L':';
  return sPath.substr(0, bRoot || nName == 0 ? nName : nName - 1);
}

std::string FindProgramFolder() {
  const std::wstring sFolder = FolderOf(WideRunningProgram());
  const std::string sPath = PathInCodePage(sFolder);
  if (sPath.empty()) {
    throw PlatformError("find the program's own folder", FromWide(sFolder),
                        "its name holds characters that the program cannot use; please copy the "
                        "suite to another folder");
  }
  if (sPath.size() > LongestFolder) {
    throw PlatformError("use the program's own folder", sPath,
                        "its path is too long; please copy the suite to a folder with a shorter "
                        "one");
  }
  return sPath;
}

}  // namespace

std::string PathInCodePage(const std::wstring& sPath) {
  if (IsInCodePage(sPath)) return FromWide(sPath);
  std::wstring sShort(MAX_PATH, L'\0');
  const DWORD nLength = GetShortPathNameW(sPath.c_str(), sShort.data(), MAX_PATH);
  sShort.resize(nLength < MAX_PATH ? nLength : 0);  // of a longer one, the room that it needs
  return IsInCodePage(sShort) ? FromWide(sShort) : "";
}

std::string RunningProgram() { return FromWide(WideRunningProgram()); }

std::string WindowsSystem::ProgramFolder() {
  if (sProgramFolder_.empty()) sProgramFolder_ = FindProgramFolder();
  return sProgramFolder_;
}

// For a letter that the code page lacks the system puts in a similar one, which
// may be that of another folder.
std::string WindowsSystem::CommandLineText() {
  std::string sText = TextAfterProgram(GetCommandLineA());
  if (!std::wstring_view(GetCommandLineW()).ends_with(ToWide(sText))) {
    throw PlatformError("use the folder on the command line", sText,
                        "its name holds characters that the program cannot use");
  }
  return sText;
}

void WindowsSystem::MakeUpperCase(std::span<char> text) {
  CharUpperBuffA(text.data(), static_cast<DWORD>(text.size()));
}

std::unique_ptr<InputFile> WindowsSystem::OpenInput(const std::string& sPath) {
  return OpenWindowsFile(sPath);
}

std::unique_ptr<FileSearch> WindowsSystem::Search(const std::string& sPath) {
  return SearchWindowsFiles(sPath);
}

void WindowsSystem::Beep() { MessageBeep(MB_OK); }

MessageAnswer WindowsSystem::ShowMessage(const std::string& sText, MessageIcon icon,
                                         MessageButtons buttons, const std::string& sTitle) {
  return ShowMessageBox(sText, icon, buttons, sTitle);
}

void WindowsSystem::StartProgram(const std::string& sCommandLine) {
  StartWindowsProgram(sCommandLine);
}

}  // namespace trelin
