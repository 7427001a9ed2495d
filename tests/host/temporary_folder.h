#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace trelin {

inline std::string FileBytes(const std::string& sPath) {
  std::ifstream file(sPath, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A new folder; removed with all that is in it. Paths are UTF-8.
class TemporaryFolder {
 public:
  TemporaryFolder() { EXPECT_NE(mkdtemp(sPath_.data()), nullptr); }
  ~TemporaryFolder() { std::filesystem::remove_all(sPath_); }
  TemporaryFolder(const TemporaryFolder&) = delete;

  std::string operator/(const std::string& sName) const { return sPath_ + "/" + sName; }

  void Write(const std::string& sName, const std::string& sText) const {
    std::filesystem::create_directories(std::filesystem::path(*this / sName).parent_path());
    std::ofstream(*this / sName, std::ios::binary) << sText;
  }

 private:
  std::string sPath_ = testing::TempDir() + "trelin-XXXXXX";
};

}  // namespace trelin
