#pragma once

#include <string_view>

namespace trelin {

// Trimming drops spaces (character 32) only.
inline std::string_view TrimRight(std::string_view sText) {
  return sText.substr(0, sText.find_last_not_of(' ') + 1);
}

inline std::string_view TrimSpaces(std::string_view sText) {
  const std::size_t nFirst = sText.find_first_not_of(' ');
  return nFirst == std::string_view::npos ? std::string_view() : TrimRight(sText.substr(nFirst));
}

}  // namespace trelin
