// Findings for a reader at a terminal, in the form that editors know:
//
//   TRELIN.CFG:12:3: error: Trelin Setup does not know the entry "REVISON". [unknown-key]
//      12 |   REVISON = 2.1
//         |   ^~~~~~~
//         = The known key that is nearest to it is REVISION.

#include <algorithm>
#include <cstddef>
#include <string>

#include "check/results.h"
#include "seam/console.h"
#include "texts/text.h"

namespace trelin {

namespace {

constexpr std::size_t NumberWidth = 6;
constexpr std::size_t MostShown = 160;  // characters of a line

// A message of the launcher may have several paragraphs.
std::string OnOneLine(const std::string& sText) {
  std::string sLine;
  for (const char c : sText) {
    const bool bBreak = c == '\n' || c == '\r';
    if (!bBreak) sLine += c;
    if (bBreak && !sLine.ends_with(' ')) sLine += ' ';
  }
  return sLine;
}

bool BeginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }

// Broken at spaces so that no line is wider than the terminal; the lines behind the
// first have nIndent spaces in front. As it is where there is no terminal.
std::string Wrapped(const std::string& sUtf8, std::size_t nIndent, const Terminal& terminal) {
  const auto nWidth = static_cast<std::size_t>(terminal.lColumns);
  if (nWidth <= 2 * nIndent) return sUtf8 + "\n";
  std::string sText;
  std::size_t nColumn = 0;
  for (std::size_t n = 0; n < sUtf8.size();) {
    const std::size_t nWord = std::min(sUtf8.find_first_not_of(' ', n), sUtf8.size());
    const std::size_t nEnd = std::min(sUtf8.find(' ', nWord), sUtf8.size());
    const std::string sPart = sUtf8.substr(n, nEnd - n);
    const auto nCharacters =
        static_cast<std::size_t>(std::count_if(sPart.begin(), sPart.end(), BeginsCharacter));
    const bool bBreaks = nColumn > nIndent && nColumn + nCharacters > nWidth;
    if (bBreaks) sText += "\n" + std::string(nIndent, ' ');
    sText += bBreaks ? sUtf8.substr(nWord, nEnd - nWord) : sPart;
    nColumn = bBreaks ? nIndent + nCharacters - (nWord - n) : nColumn + nCharacters;
    n = nEnd;
  }
  return sText + "\n";
}

std::string Position(const Finding& finding) {
  const Place& place = finding.place;
  if (place.lLine == 0) return "";
  return ":" + std::to_string(place.lLine) + ":" + std::to_string(place.lColumn);
}

std::string Margin(const std::string& sNumber) {
  return std::string(NumberWidth - std::min(NumberWidth, sNumber.size()), ' ') + sNumber + " | ";
}

// How many characters of a line are shown.
std::size_t ShownWidth(const Terminal& terminal) {
  const auto nColumns = static_cast<std::size_t>(terminal.lColumns);
  return nColumns == 0 ? MostShown
                       : std::clamp(nColumns, 3 * NumberWidth, MostShown) - Margin("").size();
}

// The line and, under it, the place. Of a long line only the part around it.
std::string SourceExcerpt(const SourceLines& lines, const Place& place, const Terminal& terminal) {
  if (place.lLine == 0 || place.lLine > lines.Count()) return "";
  const std::string_view sLine = lines.Line(place.lLine);
  const auto nColumn = static_cast<std::size_t>(place.lColumn) - 1;
  const std::size_t nShown = ShownWidth(terminal);
  const std::size_t nBegin = nColumn < nShown ? 0 : nColumn - nShown / 2;
  const std::string sPart(sLine.substr(std::min(nBegin, sLine.size()), nShown));
  const std::size_t nAt = nColumn - nBegin;
  const auto nLength = static_cast<std::size_t>(std::max(place.lLength, 1));
  const std::size_t nMarked = std::min(nLength, std::max(sPart.size(), nAt + 1) - nAt);
  return Margin(std::to_string(place.lLine)) + Utf8Of(WithoutControls(sPart)) + "\n" + Margin("") +
         std::string(nAt, ' ') + "^" + std::string(nMarked - 1, '~') + "\n";
}

// In the colours that compilers have, if the terminal takes them.
std::string Painted(const std::string& sText, const char* pColor, const Terminal& terminal) {
  return terminal.bColors ? std::string("\x1B[") + pColor + "m" + sText + "\x1B[0m" : sText;
}

std::string TextOf(const CheckedFile& file, const Finding& finding, const Terminal& terminal) {
  const char* const pColor = finding.severity == Severity::Error ? "1;31" : "1;35";
  const std::string sSeverity = NameOf(finding.severity);
  std::string sText =
      Wrapped(Utf8Of(file.sPath) + Position(finding) + ": " + sSeverity + ": " +
                  Utf8Of(OnOneLine(finding.sMessage)) + " [" + finding.pRule->pName + "]",
              4, terminal);
  const std::size_t nSeverity = sText.find(sSeverity, file.sPath.size());
  if (nSeverity != std::string::npos)
    sText.replace(nSeverity, sSeverity.size(), Painted(sSeverity, pColor, terminal));
  sText += SourceExcerpt(file.lines, finding.place, terminal);
  if (!finding.sHint.empty())
    sText += Wrapped(std::string(NumberWidth, ' ') + " = " + Utf8Of(OnOneLine(finding.sHint)),
                     NumberWidth + 3, terminal);
  return sText;
}

}  // namespace

std::string TextReport(const Results& results, const Terminal& terminal) {
  std::string sReport;
  for (const CheckedFile& file : results)
    for (const Finding& finding : file.findings) sReport += TextOf(file, finding, terminal);
  return sReport + Counted(CountOf(results, Severity::Error), "error") + ", " +
         Counted(CountOf(results, Severity::Warning), "warning") + "\n";
}

}  // namespace trelin
