#include "systems/windows/windows_process.h"

#include <windows.h>

#include "shared/start_paths.h"
#include "systems/windows/handle.h"
#include "systems/windows/windows_error.h"
#include "systems/windows/windows_files.h"

namespace trelin {

namespace {

const char* const StartOperation = "start the program";

bool LacksExtension(const std::string& sPath) {
  const std::string sName = sPath.substr(sPath.find_last_of("\\/:") + 1);
  return !sName.empty() && sName.find('.') == std::string::npos;
}

// The file that the program's name on a command line stands for.
std::string ProgramFile(const std::string& sProgram) {
  const std::string sWithExtension = sProgram + ".exe";
  const bool bLacksIt = !IsFile(sProgram) && LacksExtension(sProgram) && IsFile(sWithExtension);
  return bLacksIt ? sWithExtension : sProgram;
}

bool IsProgram(const std::string& sProgram) { return IsFile(ProgramFile(sProgram)); }

std::string PassedOn(const CommandLine& command, const std::string& sCommandLine) {
  const bool bAsItIs = command.bQuoted || command.sProgram.find(' ') == std::string::npos;
  return bAsItIs ? sCommandLine : '"' + command.sProgram + '"' + command.sArguments;
}

// From the drive or the share on: neither a current folder nor a current drive
// has a part in it.
bool IsFullPath(const std::string& sPath) {
  const auto isSlash = [](char c) { return c == '\\' || c == '/'; };
  if (sPath.size() < 3) return false;
  return sPath[1] == ':' ? isSlash(sPath[2]) : isSlash(sPath[0]) && isSlash(sPath[1]);
}

// Returns ERROR_SUCCESS or the reason of the failure. With the file given
// apart from the command line, the system does not look for it anywhere else.
DWORD Start(const std::string& sFile, const std::string& sCommandLine) {
  std::string sWritable = sCommandLine;  // the system writes into it
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION started{};
  if (!CreateProcessA(sFile.c_str(), sWritable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &started))
    return GetLastError();
  const HandleOwner process(started.hProcess);
  const HandleOwner thread(started.hThread);
  return ERROR_SUCCESS;
}

std::string StartReason(const std::string& sFile, DWORD lReason) {
  if (IsFolder(sFile)) return "it is a folder, not a program";
  if (lReason == ERROR_BAD_EXE_FORMAT || lReason == ERROR_EXE_MACHINE_TYPE_MISMATCH)
    return "it is not a program that this system can run";
  return SystemReason(lReason);
}

}  // namespace

PathTests StartPathTests() { return {IsProgram, IsFolder}; }

void StartWindowsProgram(const std::string& sCommandLine) {
  RefuseNul(StartOperation, sCommandLine);
  const CommandLine command = ResolveCommandLine(sCommandLine, StartPathTests());
  const std::string sFile = ProgramFile(command.sProgram);
  if (!IsFullPath(sFile))
    throw PlatformError(StartOperation, sFile.empty() ? sCommandLine : sFile,
                        "it is not a full path; please start Trelin again and give the folder with "
                        "its full path, such as D:\\Disk1");
  const DWORD lReason = Start(sFile, PassedOn(command, sCommandLine));
  if (lReason == ERROR_SUCCESS) return;
  throw PlatformError(StartOperation, sFile, StartReason(sFile, lReason));
}

}  // namespace trelin
