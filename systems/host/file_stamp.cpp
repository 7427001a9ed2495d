#include "systems/host/file_stamp.h"

#include <cerrno>
#include <ctime>

namespace trelin {

namespace {

constexpr std::int64_t LongestTick = 20'000'000;  // of the clock that dates files, nanoseconds

std::int64_t Nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

FileStamp FileStamp::Of(const struct stat& status) {
  return {0,
          status.st_dev,
          status.st_ino,
          status.st_size,
          Nanoseconds(status.st_mtim),
          Nanoseconds(status.st_ctim)};
}

FileStamp FileStamp::Of(const std::string& sHostPath) {
  struct stat status {};
  if (stat(sHostPath.c_str(), &status) == 0) return Of(status);
  FileStamp none;
  none.nReason = errno;
  return none;
}

bool FileStamp::Settled() const {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return Nanoseconds(now) - nChanged > LongestTick;
}

}  // namespace trelin
