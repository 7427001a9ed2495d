// Checks of the lines as they stand in the file.

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <string>

#include "check/checks.h"
#include "check/encoding.h"

namespace trelin {

namespace {

constexpr std::size_t LongestLine = std::numeric_limits<std::int16_t>::max();

bool IsComment(std::string_view sLine) {
  const std::size_t nFirst = sLine.find_first_not_of(" \t");
  return nFirst != std::string_view::npos && sLine[nFirst] == ';';
}

bool HasFault(const CheckedList& list, const Rule* pRule, std::int32_t lLine) {
  return std::any_of(list.faults.begin(), list.faults.end(), [&](const Finding& fault) {
    return fault.pRule == pRule && fault.place.lLine == lLine;
  });
}

// The mark has a rule of its own.
std::size_t MarkLength(std::string_view sLine, std::int32_t lLine) {
  return lLine == 1 && sLine.starts_with(Utf8Mark) ? Utf8Mark.size() : 0;
}

// Where the launcher stops at such a line, the reader has said so.
void CheckLineLengths(const Suite& suite, Report& report) {
  const SourceLines& lines = suite.list.lines;
  for (std::int32_t l = 1; l <= lines.Count(); ++l) {
    if (lines.Line(l).size() <= LongestLine) continue;
    if (HasFault(suite.list, &rule::LineTooLong, l)) continue;
    report.Warn({l, static_cast<std::int32_t>(LongestLine) + 1, 1},
                "The line has " + std::to_string(lines.Line(l).size()) +
                    " characters. The launcher counts positions up to 32767.",
                "Shorten it.");
  }
}

// No text of a comment is shown.
void CheckCodePage(const Suite& suite, Report& report) {
  const SourceLines& lines = suite.list.lines;
  if (HasFault(suite.list, &rule::NotAnsi, 1)) return;  // the whole file
  const bool bUtf8 = IsUtf8(lines.Text());
  for (std::int32_t l = 1; l <= lines.Count(); ++l) {
    std::string_view sLine = lines.Line(l);
    const std::size_t nMark = MarkLength(sLine, l);
    sLine.remove_prefix(nMark);
    const auto foreign = FindForeignText(sLine, bUtf8);
    if (!foreign || IsComment(sLine)) continue;
    report.Error(
        {l, static_cast<std::int32_t>(foreign->nOffset + nMark) + 1,
         static_cast<std::int32_t>(foreign->nLength)},
        "The text " + foreign->sReason + " and is not shown as it is meant.",
        std::string(foreign->bLacking ? "Write it in other characters. " : "") + SaveInCodePage());
  }
}

}  // namespace

std::span<const Check> LineChecks() {
  static constexpr std::array Table = {
      Check{&rule::LineTooLong, CheckLineLengths},
      Check{&rule::NotAnsi, CheckCodePage},
  };
  return Table;
}

}  // namespace trelin
