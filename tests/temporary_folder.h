#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>

namespace trelin {

inline std::string FileBytes(const std::string& sPath) {
  std::ifstream file(std::filesystem::path(sPath), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A new folder; removed with all that is in it. Paths are UTF-8, with slashes.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    const std::string sStart = std::filesystem::temp_directory_path().generic_string() + "/trelin-";
    std::random_device number;
    do {
      sPath_ = sStart + std::to_string(number());
    } while (!std::filesystem::create_directory(sPath_));
  }
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(sPath_, error);
    EXPECT_FALSE(error) << sPath_ << ": " << error.message();
  }
  TemporaryFolder(const TemporaryFolder&) = delete;

  std::string operator/(const std::string& sName) const { return sPath_ + "/" + sName; }

  void Write(const std::string& sName, const std::string& sText) const {
    const std::filesystem::path path(*this / sName);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << sText;
  }

 private:
  std::string sPath_;
};

}  // namespace trelin
