#include "seam/console.h"

#include <windows.h>
#include <wincrypt.h>

#include <array>
#include <memory>
#include <string>

#include "systems/windows/windows_error.h"
#include "systems/windows/windows_files.h"
#include "systems/windows/windows_registry.h"
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

// A digest of the cryptographic services that each Windows has.
class WindowsDigest {
 public:
  explicit WindowsDigest(const std::string& sBytes) {
    const bool bDone =
        CryptAcquireContextA(&hProvider_, nullptr, nullptr, PROV_RSA_AES, CRYPT_VERIFYCONTEXT) &&
        CryptCreateHash(hProvider_, CALG_SHA_256, 0, 0, &hHash_) &&
        CryptHashData(hHash_, reinterpret_cast<const BYTE*>(sBytes.data()),
                      static_cast<DWORD>(sBytes.size()), 0) &&
        CryptGetHashParam(hHash_, HP_HASHVAL, digest_.data(), &lSize_, 0);
    lReason_ = bDone ? ERROR_SUCCESS : GetLastError();
  }
  ~WindowsDigest() {
    if (hHash_ != 0) CryptDestroyHash(hHash_);
    if (hProvider_ != 0) CryptReleaseContext(hProvider_, 0);
  }
  WindowsDigest(const WindowsDigest&) = delete;
  WindowsDigest& operator=(const WindowsDigest&) = delete;

  std::string Hex() const {
    if (lReason_ != ERROR_SUCCESS)
      throw PlatformError("Could not work out a SHA-256 digest: " + SystemReason(lReason_) + ".");
    const char* const pDigits = "0123456789abcdef";
    std::string sHex;
    for (const BYTE b : digest_) (sHex += pDigits[b >> 4U]) += pDigits[b & 0xFU];
    return sHex;
  }

 private:
  HCRYPTPROV hProvider_ = 0;
  HCRYPTHASH hHash_ = 0;
  std::array<BYTE, 32> digest_{};
  DWORD lSize_ = 32;
  DWORD lReason_ = ERROR_SUCCESS;
};

}  // namespace

std::string WrittenByUser(const std::string& sPath) { return sPath; }

std::unique_ptr<Registry> OpenRegistry() { return std::make_unique<WindowsRegistry>(); }

std::string ComputerName() {
  std::array<char, 256> name{};
  auto lSize = static_cast<DWORD>(name.size());
  if (!GetComputerNameExA(ComputerNameDnsHostname, name.data(), &lSize))
    throw WindowsError("ask for the name of", "this computer");
  return name.data();
}

std::string Sha256Of(const std::string& sBytes) { return WindowsDigest(sBytes).Hex(); }

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

bool ErrorsAreSeen() {
  DWORD lMode = 0;
  return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &lMode) != 0;
}

Terminal OutputTerminal() {
  HANDLE hOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD lMode = 0;
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (!GetConsoleMode(hOutput, &lMode) || !GetConsoleScreenBufferInfo(hOutput, &info)) return {};
  const bool bColors = SetConsoleMode(hOutput, lMode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
  return {info.srWindow.Right - info.srWindow.Left + 1, bColors};
}

int AnsiCodePage() { return static_cast<int>(GetACP()); }

std::string AnsiOf(const std::string& sUtf8) { return FromWide(ToWide(sUtf8, CP_UTF8)); }

std::string Utf8Of(const std::string& sText) { return FromWide(ToWide(sText), CP_UTF8); }

void WriteOutput(const std::string& sUtf8) { Write(sUtf8, STD_OUTPUT_HANDLE); }

void WriteErrorOutput(const std::string& sUtf8) { Write(sUtf8, STD_ERROR_HANDLE); }

}  // namespace trelin
