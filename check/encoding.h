#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace trelin {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

// Whether a file of these bytes is UTF-16: it begins with the mark, or every
// other byte of its beginning is zero.
bool IsUtf16(std::string_view sFile);

// A stretch of a text that is not in the ANSI code page, and why.
struct ForeignText {
  std::size_t nOffset;
  std::size_t nLength;
  std::string sReason;  // a part of a sentence
};

// The first such stretch of a line: characters that are UTF-8, a code that
// stands for no character, a control character other than a tab.
std::optional<ForeignText> FindForeignText(std::string_view sLine);

}  // namespace trelin
