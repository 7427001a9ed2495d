#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "systems/host/file_stamp.h"
#include "systems/host/host_files.h"

namespace trelin {

constexpr std::int32_t RegistryWriteFault = 29;  // ERROR_WRITE_FAULT
constexpr std::int32_t RegistryDiskFull = 112;   // ERROR_DISK_FULL

// The file that keeps a registry, at a path of this system.
class RegistryStore {
 public:
  struct Content {
    std::string sBytes;
    FileStamp stamp;
    bool bWritable = true;
  };

  // More than any writer needs, and not too long for a user who sees no window yet.
  static constexpr std::chrono::milliseconds LongestWait{5000};

  // sPath: a path of this system, full or from the current folder on. longestWait:
  // for the lock.
  explicit RegistryStore(const std::string& sPath,
                         std::chrono::milliseconds longestWait = LongestWait);

  const std::string& Path() const { return sPath_; }

  FileStamp Stamp() const { return FileStamp::Of(sPath_); }

  // The whole file and the stamp it had when reading began; a file that does
  // not exist is empty and writable. Throws PlatformError when it cannot be
  // read.
  Content Read() const;

  // Waits until no other writer holds the lock and takes it until it is
  // destroyed. The lock is a file beside the registry's, which stays. lResult is a
  // result of the registry's operations: RegistryUnusable when others hold it all
  // the time, which LockTrouble tells the user.
  FileDescriptor Lock(std::int32_t& lResult) const;
  std::string LockTrouble() const;

  // Puts a new file in the place of the old one, with its mode; whoever reads
  // finds the whole old one or the whole new one. Only under the lock.
  // Success gives the new file's stamp; on failure the old file stands.
  std::int32_t Replace(const std::string& sBytes, FileStamp& stamp) const;

 private:
  std::string sPath_;
  std::chrono::milliseconds longestWait_;
};

}  // namespace trelin
