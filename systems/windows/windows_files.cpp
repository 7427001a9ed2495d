#include "systems/windows/windows_files.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <utility>

#include "systems/windows/handle.h"
#include "systems/windows/windows_error.h"

namespace trelin {

namespace {

class WindowsFile : public InputFile {
 public:
  WindowsFile(HandleOwner file, std::string sPath)
      : file_(std::move(file)), sPath_(std::move(sPath)) {}

  std::size_t Read(char* pBuffer, std::size_t nSize) override {
    const auto lSize = static_cast<DWORD>(std::min<std::size_t>(nSize, MAXDWORD));
    DWORD lRead = 0;
    const bool bRead = ReadFile(file_.get(), pBuffer, lSize, &lRead, nullptr) != 0;
    if (!bRead && GetLastError() != ERROR_BROKEN_PIPE)  // which is the end of a pipe
      throw WindowsError("read the file", sPath_);
    return lRead;
  }

 private:
  HandleOwner file_;
  std::string sPath_;
};

bool IsNormalFile(const WIN32_FIND_DATAA& entry) {
  constexpr DWORD Others = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  return (entry.dwFileAttributes & Others) == 0;
}

// Why a search ends or does not begin, when that only means that there are no
// (more) files. ERROR_DIRECTORY: what should be the folder is a file.
bool MeansNoFiles(DWORD lReason) {
  return lReason == ERROR_NO_MORE_FILES || lReason == ERROR_FILE_NOT_FOUND ||
         lReason == ERROR_PATH_NOT_FOUND || lReason == ERROR_DIRECTORY;
}

class WindowsSearch : public FileSearch {
 public:
  explicit WindowsSearch(std::string sPath) : sPath_(std::move(sPath)) {
    search_.reset(NullIfInvalid(FindFirstFileA(sPath_.c_str(), &entry_)));
    if (!search_) End(GetLastError());
  }

  std::optional<std::string> Next() override {
    while (search_) {
      const WIN32_FIND_DATAA entry = entry_;
      if (!FindNextFileA(search_.get(), &entry_)) End(GetLastError());
      if (IsNormalFile(entry)) return entry.cFileName;
    }
    return std::nullopt;
  }

 private:
  void End(DWORD lReason) {
    search_.reset();
    if (!MeansNoFiles(lReason)) throw WindowsError("search for the file", sPath_, lReason);
  }

  std::string sPath_;
  SearchOwner search_;        // null after the last entry
  WIN32_FIND_DATAA entry_{};  // the next one
};

}  // namespace

std::unique_ptr<InputFile> OpenWindowsFile(const std::string& sPath) {
  const char* const pOperation = "open the file";
  RefuseNul(pOperation, sPath);
  HandleOwner file(
      NullIfInvalid(CreateFileA(sPath.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr)));
  const DWORD lReason = GetLastError();
  if (file) return std::make_unique<WindowsFile>(std::move(file), sPath);
  if (IsFolder(sPath)) throw PlatformError(pOperation, sPath, "it is a folder, not a file");
  throw WindowsError(pOperation, sPath, lReason);
}

std::unique_ptr<InputFile> OpenWindowsStandardInput() {
  HANDLE hInput = nullptr;
  if (!DuplicateHandle(GetCurrentProcess(), GetStdHandle(STD_INPUT_HANDLE), GetCurrentProcess(),
                       &hInput, 0, FALSE, DUPLICATE_SAME_ACCESS))
    throw WindowsError("open", "the standard input");
  return std::make_unique<WindowsFile>(HandleOwner(hInput), "the standard input");
}

bool WriteWindowsFile(const std::string& sPath, const std::string& sBytes, DWORD lCreation) {
  const HandleOwner file(NullIfInvalid(CreateFileA(sPath.c_str(), GENERIC_WRITE, 0, nullptr,
                                                   lCreation, FILE_ATTRIBUTE_NORMAL, nullptr)));
  DWORD lWritten = 0;
  return file &&
         WriteFile(file.get(), sBytes.data(), static_cast<DWORD>(sBytes.size()), &lWritten,
                   nullptr) &&
         lWritten == sBytes.size() && FlushFileBuffers(file.get());
}

void ReplaceWindowsFile(const std::string& sPath, const std::string& sBytes) {
  std::array<char, 32768> full{};  // ReplaceFile takes no other path
  GetFullPathNameA(sPath.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  const std::string sNew = full.data() + std::string(".tmp");
  if (WriteWindowsFile(sNew, sBytes, CREATE_ALWAYS) &&
      ReplaceFileA(full.data(), sNew.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr,
                   nullptr))
    return;
  const DWORD lReason = GetLastError();
  DeleteFileA(sNew.c_str());
  throw WindowsError("write the file", sPath, lReason);
}

std::unique_ptr<FileSearch> SearchWindowsFiles(const std::string& sPath) {
  RefuseNul("search for the file", sPath);
  return std::make_unique<WindowsSearch>(sPath);
}

bool IsFolder(const std::string& sPath) {
  const DWORD lAttributes = GetFileAttributesA(sPath.c_str());
  return lAttributes != INVALID_FILE_ATTRIBUTES && (lAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsFile(const std::string& sPath) {
  return GetFileAttributesA(sPath.c_str()) != INVALID_FILE_ATTRIBUTES && !IsFolder(sPath);
}

}  // namespace trelin
