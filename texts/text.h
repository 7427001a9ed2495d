#pragma once

#include <algorithm>
#include <cstddef>
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

// A number of things, "1 error" or "2 errors".
std::string Counted(std::size_t nCount, const std::string& sThing);

// With a space for each character that a terminal would not show as one.
std::string WithoutControls(std::string sText);

// The text in upper case, as the system makes it.
std::string UpperCase(std::string_view sText);

}  // namespace trelin
