#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace trelin {

// Trimming drops spaces (character 32) only. What is left is a part of the text; of
// a text of spaces, the empty one at its end.
inline std::string_view TrimRight(std::string_view sText) {
  return sText.substr(0, sText.find_last_not_of(' ') + 1);
}

inline std::string_view TrimLeft(std::string_view sText) {
  return sText.substr(std::min(sText.find_first_not_of(' '), sText.size()));
}

inline std::string_view TrimSpaces(std::string_view sText) { return TrimRight(TrimLeft(sText)); }

// The text in upper case, as the system makes it.
std::string UpperCase(std::string_view sText);

}  // namespace trelin
