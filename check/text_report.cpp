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

std::string Position(const Finding& finding) {
  const Place& place = finding.place;
  if (place.lLine == 0) return "";
  return ":" + std::to_string(place.lLine) + ":" + std::to_string(place.lColumn);
}

std::string Margin(const std::string& sNumber) {
  return std::string(NumberWidth - std::min(NumberWidth, sNumber.size()), ' ') + sNumber + " | ";
}

// What a terminal would not show as one character.
std::string Shown(std::string sLine) {
  std::replace_if(
      sLine.begin(), sLine.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return sLine;
}

// The line and, under it, the place. Of a long line only the part around it.
std::string SourceExcerpt(const SourceLines& lines, const Place& place) {
  if (place.lLine == 0 || place.lLine > lines.Count()) return "";
  const std::string_view sLine = lines.Line(place.lLine);
  const auto nColumn = static_cast<std::size_t>(place.lColumn) - 1;
  const std::size_t nBegin = nColumn < MostShown ? 0 : nColumn - MostShown / 2;
  const std::string sPart(sLine.substr(std::min(nBegin, sLine.size()), MostShown));
  const std::size_t nAt = nColumn - nBegin;
  const auto nLength = static_cast<std::size_t>(std::max(place.lLength, 1));
  const std::size_t nMarked = std::min(nLength, std::max(sPart.size(), nAt + 1) - nAt);
  return Margin(std::to_string(place.lLine)) + Utf8Of(Shown(sPart)) + "\n" + Margin("") +
         std::string(nAt, ' ') + "^" + std::string(nMarked - 1, '~') + "\n";
}

std::string TextOf(const CheckedFile& file, const Finding& finding) {
  std::string sText = Utf8Of(file.sPath) + Position(finding) + ": " + NameOf(finding.severity) +
                      ": " + Utf8Of(OnOneLine(finding.sMessage)) + " [" + finding.pRule->pName +
                      "]\n" + SourceExcerpt(file.lines, finding.place);
  if (!finding.sHint.empty())
    sText += std::string(NumberWidth, ' ') + " = " + Utf8Of(OnOneLine(finding.sHint)) + "\n";
  return sText;
}

std::string Count(std::size_t nCount, const char* pWhat) {
  return std::to_string(nCount) + " " + pWhat + (nCount == 1 ? "" : "s");
}

}  // namespace

std::string TextReport(const Results& results) {
  std::string sReport;
  for (const CheckedFile& file : results)
    for (const Finding& finding : file.findings) sReport += TextOf(file, finding);
  return sReport + Count(CountOf(results, Severity::Error), "error") + ", " +
         Count(CountOf(results, Severity::Warning), "warning") + "\n";
}

}  // namespace trelin
