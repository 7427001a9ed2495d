#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <string>

namespace trelin {

// Tells one state of a file or folder from another. Times are nanoseconds
// since 1970.
struct FileStamp {
  int nReason = 0;  // why there is none, an errno value
  std::uint64_t nDevice = 0;
  std::uint64_t nInode = 0;
  std::int64_t nSize = 0;
  std::int64_t nModified = 0;
  std::int64_t nChanged = 0;

  static FileStamp Of(const struct stat& status);
  static FileStamp Of(const std::string& sHostPath);

  bool operator==(const FileStamp&) const = default;

  // Whether a later change is sure to give another stamp: the clock that
  // dates files has moved on since the last one.
  bool Settled() const;
};

}  // namespace trelin
