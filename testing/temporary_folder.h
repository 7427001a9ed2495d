#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>

namespace trelin {

// Of a text the standard library would think that it is in the code page.
inline std::filesystem::path Utf8Path(const std::string& sPath) {
  return std::u8string(sPath.begin(), sPath.end());
}

inline std::string FileBytes(const std::string& sPath) {
  std::ifstream file(Utf8Path(sPath), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A new folder; removed with all that is in it. Paths are UTF-8, with slashes.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device number;
    do {
      path_ = std::filesystem::temp_directory_path() / ("trelin-" + std::to_string(number()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
    EXPECT_FALSE(error) << path_ << ": " << error.message();
  }
  TemporaryFolder(const TemporaryFolder&) = delete;

  std::string operator/(const std::string& sName) const {
    const std::u8string sPath = path_.generic_u8string();
    return std::string(sPath.begin(), sPath.end()) + "/" + sName;
  }

  void Write(const std::string& sName, const std::string& sText) const {
    const std::filesystem::path path = Utf8Path(*this / sName);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << sText;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace trelin
