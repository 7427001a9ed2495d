#include "systems/host/registry_store.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

#include "seam/registry.h"
#include "systems/host/file_replacement.h"
#include "systems/host/host_path.h"

namespace trelin {

namespace {

constexpr const char* ReadOperation = "read the registry file";

constexpr std::chrono::milliseconds PauseBetweenLockTries{1};

std::int32_t WriteResult(int nReason) {
  switch (nReason) {
    case EACCES:
    case EPERM:
    case EROFS:
      return RegistryAccessDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return RegistryDiskFull;
    default:
      return RegistryWriteFault;
  }
}

// 0, or the errno value of the failure: EWOULDBLOCK when another program holds
// the lock all the time.
int TakeLock(int hFile, std::chrono::milliseconds longestWait) {
  const auto end = std::chrono::steady_clock::now() + longestWait;
  while (flock(hFile, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) return errno;
    if (std::chrono::steady_clock::now() >= end) return EWOULDBLOCK;
    std::this_thread::sleep_for(PauseBetweenLockTries);
  }
  return 0;
}

std::string LockPath(const std::string& sTarget) { return sTarget + ".lock"; }

std::string ReadAll(int hFile, std::int64_t nSize, const std::string& sPath) {
  std::string sBytes(static_cast<std::size_t>(nSize) + 1, '\0');  // one more to see the end
  std::size_t nLength = 0;
  while (true) {
    const ssize_t nRead = read(hFile, sBytes.data() + nLength, sBytes.size() - nLength);
    if (nRead < 0 && errno != EINTR) throw HostError(ReadOperation, sPath, errno);
    if (nRead == 0) break;
    if (nRead > 0) nLength += static_cast<std::size_t>(nRead);
    if (nLength == sBytes.size()) sBytes.resize(2 * nLength);
  }
  sBytes.resize(nLength);
  return sBytes;
}

}  // namespace

RegistryStore::RegistryStore(const std::string& sPath, std::chrono::milliseconds longestWait)
    : sPath_(std::filesystem::absolute(sPath).string()), longestWait_(longestWait) {}

RegistryStore::Content RegistryStore::Read() const {
  Content content;
  // Without O_NONBLOCK, opening a pipe would wait for its other end.
  const FileDescriptor file(open(sPath_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (file.Get() < 0) {
    content.stamp.nReason = errno;
    if (errno == ENOENT) return content;
    throw HostError(ReadOperation, sPath_, errno);
  }
  struct stat status {};
  if (fstat(file.Get(), &status) != 0) throw HostError(ReadOperation, sPath_, errno);
  if (S_ISDIR(status.st_mode)) throw HostError(ReadOperation, sPath_, EISDIR);
  if (!S_ISREG(status.st_mode))
    throw PlatformError(ReadOperation, ShownPath(sPath_), "it is a device or a pipe");
  content.stamp = FileStamp::Of(status);
  content.bWritable = access(sPath_.c_str(), W_OK) == 0;
  content.sBytes = ReadAll(file.Get(), status.st_size, sPath_);
  return content;
}

FileDescriptor RegistryStore::Lock(std::int32_t& lResult) const {
  const std::filesystem::path target = LinkTarget(sPath_);
  std::error_code error;
  std::filesystem::create_directories(target.parent_path(), error);
  const std::string sLock = LockPath(target.string());
  FileDescriptor lock(open(sLock.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC, 0666));
  const int nReason = lock.Get() < 0 ? errno : TakeLock(lock.Get(), longestWait_);
  if (nReason == 0)
    lResult = RegistrySuccess;
  else
    lResult =
        nReason == EWOULDBLOCK ? RegistryUnusable : WriteResult(error ? error.value() : nReason);
  return lock;
}

std::string RegistryStore::LockTrouble() const {
  const std::string sTarget = LinkTarget(sPath_);
  return PlatformError("write the registry file", ShownPath(sTarget),
                       "another program holds its lock, the file \"" +
                           ShownPath(LockPath(sTarget)) +
                           "\"; please wait until that program has ended, or end it, and try again")
      .what();
}

std::int32_t RegistryStore::Replace(const std::string& sBytes, FileStamp& stamp) const {
  int nReason = 0;
  const FileDescriptor file = PutInPlace(LinkTarget(sPath_), sBytes, nReason);
  if (file.Get() < 0) return WriteResult(nReason);
  struct stat status {};  // only now: renaming a file changes its stamp
  if (fstat(file.Get(), &status) != 0) return RegistryWriteFault;
  stamp = FileStamp::Of(status);
  return RegistrySuccess;
}

}  // namespace trelin
