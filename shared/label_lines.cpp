#include "shared/label_lines.h"

#include <algorithm>

namespace trelin {

namespace {

constexpr std::u16string_view Ellipsis = u"\u2026";
constexpr std::u16string_view Spaces = u" \t\r";

std::u16string_view WithoutEndSpaces(std::u16string_view sText) {
  return sText.substr(0, sText.find_last_not_of(Spaces) + 1);
}

// How many characters of the text fit. A text may have millions: beginnings of it
// are measured, each twice as long as the last, until one does not fit.
std::size_t CountIn(std::u16string_view sText, const CountFitting& countFitting) {
  for (std::size_t nMeasured = 128;; nMeasured *= 2) {
    const std::size_t nFitting = countFitting(sText.substr(0, nMeasured));
    if (nFitting < nMeasured || nMeasured >= sText.size()) return nFitting;
  }
}

// The length of the first line of what is left of a paragraph.
std::size_t FirstLine(std::u16string_view sRest, const CountFitting& countFitting) {
  const std::size_t nFitting = CountIn(sRest, countFitting);
  if (nFitting >= sRest.size()) return sRest.size();
  const std::size_t nSpace = sRest.find_last_of(Spaces, nFitting);
  const std::size_t nWords =
      nSpace == std::u16string_view::npos ? 0 : WithoutEndSpaces(sRest.substr(0, nSpace)).size();
  return nWords > 0 ? nWords : std::max<std::size_t>(1, nFitting);
}

// As much of the text as fits with an ellipsis behind it.
std::u16string CutLine(std::u16string_view sRest, const CountFitting& countFitting) {
  for (std::size_t n = CountIn(sRest, countFitting);; --n) {
    std::u16string sLine = std::u16string(WithoutEndSpaces(sRest.substr(0, n))).append(Ellipsis);
    if (n == 0 || countFitting(sLine) == sLine.size()) return sLine;
  }
}

}  // namespace

std::u16string LabelLines::Joined() const {
  std::u16string sText;
  for (const std::u16string& sLine : lines) sText.append(sText.empty() ? u"" : u"\n").append(sLine);
  return sText;
}

LabelLines BreakIntoLines(std::u16string_view sText, int nMaxLines,
                          const CountFitting& countFitting) {
  LabelLines result;
  std::u16string_view sRest = WithoutEndSpaces(sText);
  while (!sRest.empty()) {
    const std::u16string_view sParagraph = sRest.substr(0, sRest.find(u'\n'));
    const std::size_t nLine = FirstLine(WithoutEndSpaces(sParagraph), countFitting);
    const std::u16string_view sBefore = sRest;
    sRest.remove_prefix(nLine);
    const std::size_t nNext = sRest.find_first_not_of(Spaces);
    sRest.remove_prefix(std::min(nNext, sRest.size()));
    if (sRest.starts_with(u'\n')) sRest.remove_prefix(1);
    if (!sRest.empty() && static_cast<int>(result.lines.size()) + 1 >= nMaxLines) {
      result.lines.push_back(CutLine(sParagraph, countFitting));
      result.bWhole = false;
      return result;
    }
    result.lines.emplace_back(sBefore.substr(0, nLine));
  }
  return result;
}

std::int32_t LinesBeyond(std::u16string_view sText, int nMaxLines,
                         const CountFitting& countFitting) {
  constexpr int MostCounted = 100;
  if (BreakIntoLines(sText, nMaxLines, countFitting).bWhole) return 0;
  const int nShown = std::max(nMaxLines, 1);
  const LabelLines more = BreakIntoLines(sText, nShown + MostCounted, countFitting);
  return static_cast<std::int32_t>(more.lines.size()) - nShown;
}

}  // namespace trelin
