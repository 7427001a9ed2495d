#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace trelin {

// What a label shows of a text, in UTF-16.
struct LabelLines {
  std::vector<std::u16string> lines;
  bool bWhole = true;  // else the last line ends in an ellipsis

  std::u16string Joined() const;  // by line feeds
};

// How many of the text's leading characters a line has room for.
using CountFitting = std::function<std::size_t(std::u16string_view sText)>;

// Breaks a text into at most nMaxLines lines, but at least one: at line feeds,
// at spaces, which are then left out, or within a word that is too long for a
// line.
LabelLines BreakIntoLines(std::u16string_view sText, int nMaxLines,
                          const CountFitting& countFitting);

// How many lines of the text are more than nMaxLines, or than one; of a very long text at
// least so many.
std::int32_t LinesBeyond(std::u16string_view sText, int nMaxLines,
                         const CountFitting& countFitting);

}  // namespace trelin
