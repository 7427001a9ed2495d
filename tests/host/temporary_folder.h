#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace trelin {

// A new folder; removed with all that is in it. Paths are UTF-8.
class TemporaryFolder {
 public:
  TemporaryFolder() : sPath_(testing::TempDir() + "trelin-XXXXXX") {
    if (mkdtemp(sPath_.data()) == nullptr) throw std::runtime_error("no temporary folder");
  }
  ~TemporaryFolder() { std::filesystem::remove_all(sPath_); }
  TemporaryFolder(const TemporaryFolder&) = delete;

  std::string operator/(const std::string& sName) const { return sPath_ + "/" + sName; }

  void Write(const std::string& sName, const std::string& sText) const {
    std::filesystem::create_directories(std::filesystem::path(*this / sName).parent_path());
    std::ofstream(*this / sName, std::ios::binary) << sText;
  }

 private:
  std::string sPath_;
};

}  // namespace trelin
