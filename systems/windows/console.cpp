#include "seam/console.h"

#include <windows.h>

#include <string>

#include "systems/windows/windows_error.h"
#include "systems/windows/windows_files.h"
#include "systems/windows/windows_text.h"

namespace trelin {

namespace {

bool WriteBytes(HANDLE hOutput, const std::string& sText) {
  DWORD lWritten = 0;
  return WriteFile(hOutput, sText.data(), static_cast<DWORD>(sText.size()), &lWritten, nullptr) &&
         lWritten == sText.size();
}

// A console takes what it is to show as wide characters; a file or pipe gets
// UTF-8.
void Write(const std::string& sUtf8, DWORD lOutput) {
  HANDLE hOutput = GetStdHandle(lOutput);
  DWORD lMode = 0;
  bool bWritten = false;
  if (GetConsoleMode(hOutput, &lMode)) {
    const std::wstring sWide = ToWide(sUtf8, CP_UTF8);
    bWritten = WriteConsoleW(hOutput, sWide.data(), static_cast<DWORD>(sWide.size()), nullptr,
                             nullptr) != 0;
  } else {
    bWritten = WriteBytes(hOutput, sUtf8);
  }
  if (!bWritten)
    throw PlatformError("Could not write to the standard output: " + SystemReason(GetLastError()) +
                        ".");
}

}  // namespace

std::string WrittenByUser(const std::string& sPath) { return sPath; }

std::unique_ptr<InputFile> OpenStandardInput() { return OpenWindowsStandardInput(); }

void ReplaceWholeFile(const std::string& sPath, const std::string& sBytes) {
  ReplaceWindowsFile(sPath, sBytes);
}

void MakeFolder(const std::string& sPath) {
  if (!CreateDirectoryA(sPath.c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
    throw WindowsError("make the folder", sPath);
}

void WriteNewFile(const std::string& sPath, const std::string& sBytes, bool /*bProgram*/) {
  if (!WriteWindowsFile(sPath, sBytes, CREATE_NEW)) throw WindowsError("write the file", sPath);
}

std::string CommandFileEnd() { return ".cmd"; }

Terminal OutputTerminal() {
  HANDLE hOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD lMode = 0;
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (!GetConsoleMode(hOutput, &lMode) || !GetConsoleScreenBufferInfo(hOutput, &info)) return {};
  const bool bColors = SetConsoleMode(hOutput, lMode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
  return {info.srWindow.Right - info.srWindow.Left + 1, bColors};
}

std::string Utf8Of(const std::string& sText) { return FromWide(ToWide(sText), CP_UTF8); }

void WriteOutput(const std::string& sUtf8) { Write(sUtf8, STD_OUTPUT_HANDLE); }

void WriteErrorOutput(const std::string& sUtf8) { Write(sUtf8, STD_ERROR_HANDLE); }

}  // namespace trelin
