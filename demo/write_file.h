#pragma once

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "seam/platform_error.h"
#include "shared/code_page.h"

namespace trelin::demo {

// The program's path (Windows-1252, backslashes) as every system reads it.
inline std::filesystem::path ToFilePath(const std::string& sPath) {
  const std::string sUtf8 = ToUtf8(sPath);
  std::u8string sGeneric(sUtf8.begin(), sUtf8.end());
  for (char8_t& c : sGeneric)
    if (c == u8'\\') c = u8'/';
  return std::filesystem::path(sGeneric);
}

// Writes a new file, creating the folders that it lies in and replacing what
// was there. Throws PlatformError.
inline void WriteFile(const std::string& sPath, const std::string& sText) {
  const std::filesystem::path path = ToFilePath(sPath);
  std::error_code error;
  std::filesystem::create_directories(path.parent_path(), error);
  if (error) throw PlatformError("create the folder of", sPath, error.message());

  errno = 0;
  std::ofstream file(path, std::ios::binary);
  file << sText;
  file.close();
  if (!file) throw PlatformError("write the file", sPath, std::generic_category().message(errno));
}

}  // namespace trelin::demo
