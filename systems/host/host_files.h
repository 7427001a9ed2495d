#pragma once

#include <sys/stat.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "seam/system.h"

namespace trelin {

// Owns an open descriptor of this system; -1 is none.
class FileDescriptor {
 public:
  explicit FileDescriptor(int hFile = -1) : hFile_(hFile) {}
  ~FileDescriptor() { Close(); }
  FileDescriptor(FileDescriptor&& other) noexcept : hFile_(std::exchange(other.hFile_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(hFile_, other.hFile_);
    return *this;
  }

  int Get() const { return hFile_; }
  void Close();

 private:
  int hFile_;
};

// False, with the reason in errno, when not all was written.
bool WriteAll(int hFile, std::string_view sBytes);

// What the system says of sPath, in the letter case of what is there. The path of that on
// this system; nothing when nothing is there.
std::optional<std::string> StatInAnyCase(std::string_view sPath, struct stat& status);

// Regular: a pipe or device does not open either, and no writer of a pipe is waited for.
enum class HostFileKinds { Any, Regular };

// System::OpenInput. A folder does not open.
std::unique_ptr<InputFile> OpenHostFile(const std::string& sPath,
                                        HostFileKinds kinds = HostFileKinds::Any);

// The standard input, as a file of its own.
std::unique_ptr<InputFile> OpenHostStandardInput();

// System::Search. Of this system's files, the hidden ones are those whose
// name begins with a dot; a symbolic link counts as what it points to, and
// devices, pipes and sockets are no normal files. A folder that may not be
// read throws PlatformError.
//
// As on Windows, spaces and dots at the end of the path do not count. In the
// pattern * stands for any characters and ? for exactly one. A name without a dot
// matches as if it ended with one, so *.* finds every name, and *. those without.
std::unique_ptr<FileSearch> SearchHostFiles(const std::string& sGiven);

}  // namespace trelin
