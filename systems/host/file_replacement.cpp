#include "systems/host/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace trelin {

namespace {

// A file under construction, removed again unless it has got its final name.
class TemporaryFile {
 public:
  // Removes what a killed writer left.
  explicit TemporaryFile(std::string sPath) : sPath_(std::move(sPath)) {
    unlink(sPath_.c_str());
    file_ = FileDescriptor(open(sPath_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
  }
  ~TemporaryFile() {
    if (bTemporary_) unlink(sPath_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  int Get() const { return file_.Get(); }
  FileDescriptor Take() { return std::move(file_); }

  bool Rename(const std::string& sPath) {
    if (rename(sPath_.c_str(), sPath.c_str()) != 0) return false;
    bTemporary_ = false;
    return true;
  }

 private:
  std::string sPath_;
  FileDescriptor file_;
  bool bTemporary_ = true;
};

bool CopyMode(const std::string& sFrom, int hTo) {
  struct stat status {};
  if (stat(sFrom.c_str(), &status) != 0) return true;  // there is no old file
  return fchmod(hTo, status.st_mode & 07777) == 0;
}

}  // namespace

std::string LinkTarget(const std::string& sPath) {
  std::filesystem::path path = sPath;
  std::error_code error;
  for (int nLinks = 0; nLinks < 40 && std::filesystem::is_symlink(path, error); ++nLinks)
    path = path.parent_path() / std::filesystem::read_symlink(path, error);
  return path.string();
}

FileDescriptor PutInPlace(const std::string& sTarget, std::string_view sBytes, int& nReason) {
  TemporaryFile file(sTarget + ".tmp");
  if (file.Get() < 0 || !CopyMode(sTarget, file.Get()) || !WriteAll(file.Get(), sBytes) ||
      fsync(file.Get()) != 0 || !file.Rename(sTarget)) {
    nReason = errno;
    return FileDescriptor();
  }
  return file.Take();
}

}  // namespace trelin
