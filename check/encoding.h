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

// A file of UTF-8 or UTF-16 in the ANSI code page and without its mark; nothing when
// it is in neither, or has characters that the code page lacks.
std::optional<std::string> InCodePage(std::string_view sFile);

// The advice for one that is not in the code page, which names it.
std::string SaveInCodePage();

// A stretch of a text that is not in the ANSI code page, and why.
struct ForeignText {
  std::size_t nOffset;
  std::size_t nLength;
  std::string sReason;    // a part of a sentence
  bool bLacking = false;  // it is UTF-8 for what the code page lacks
};

// Whether a text is UTF-8, as ASCII is, too. In a text of the ANSI code page
// a letter beyond ASCII hardly ever has the neighbours for that.
bool IsUtf8(std::string_view sText);

// The first such stretch of a line: a code that stands for no character, a control
// character other than a tab, or a character in UTF-8; of these one that the code page
// lacks comes first. In a file whose other lines show that it is in the code page, a line
// counts as UTF-8 only when its characters are letters of the code page, each in two or
// three bytes.
std::optional<ForeignText> FindForeignText(std::string_view sLine, bool bFileIsUtf8);

}  // namespace trelin
