#include "check/source_lines.h"

#include <algorithm>
#include <cstddef>

namespace trelin {

namespace {

constexpr const char* Blanks = " \t";

}  // namespace

SourceLines::SourceLines(std::string_view sFile) {
  while (!sFile.empty()) {
    const std::size_t nEnd = std::min(sFile.find_first_of("\r\n"), sFile.size());
    lines_.emplace_back(sFile.substr(0, nEnd));
    sFile.remove_prefix(nEnd);
    sFile.remove_prefix(sFile.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, sFile.size()));
  }
}

const std::string& SourceLines::Line(std::int32_t lLine) const {
  static const std::string sNone;
  return lLine >= 1 && lLine <= Count() ? lines_[static_cast<std::size_t>(lLine) - 1] : sNone;
}

// The part of the line between the two without the blanks around it; where
// there is nothing else, one character at its end.
Place SourceLines::Trimmed(std::int32_t lLine, std::size_t nBegin, std::size_t nEnd) const {
  const std::string_view sLine(Line(lLine));
  const std::string_view sPart = sLine.substr(nBegin, nEnd - nBegin);
  const std::size_t nFirst = std::min(sPart.find_first_not_of(Blanks), sPart.size());
  const std::size_t nLast = sPart.find_last_not_of(Blanks);
  const std::size_t nLength = nLast == std::string_view::npos ? 1 : nLast + 1 - nFirst;
  return {lLine, static_cast<std::int32_t>(nBegin + nFirst + 1),
          static_cast<std::int32_t>(nLength)};
}

Place SourceLines::Statement(std::int32_t lLine) const {
  return Trimmed(lLine, 0, Line(lLine).size());
}

Place SourceLines::Key(std::int32_t lLine) const {
  return Trimmed(lLine, 0, std::min(Line(lLine).find('='), Line(lLine).size()));
}

Place SourceLines::Value(std::int32_t lLine) const {
  const std::string& sLine = Line(lLine);
  return Trimmed(lLine, std::min(sLine.find('=') + 1, sLine.size()), sLine.size());
}

Place SourceLines::BlockType(std::int32_t lLine) const {
  const std::string& sLine = Line(lLine);
  const std::size_t nWord = std::min(sLine.find_first_not_of(Blanks), sLine.size());
  const std::size_t nBlank = std::min(sLine.find_first_of(Blanks, nWord), sLine.size());
  const std::size_t nType = sLine.find_first_not_of(Blanks, nBlank);
  if (nType == std::string::npos) return Statement(lLine);
  return Trimmed(lLine, nType, std::min(sLine.find_first_of(Blanks, nType), sLine.size()));
}

}  // namespace trelin
