#include "suite/statement.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <stdexcept>

#include "texts/text.h"

namespace trelin {

namespace {

constexpr std::string_view Block = "BLOCK";
constexpr std::size_t LastPosition = std::numeric_limits<std::int16_t>::max();

[[noreturn]] void FailTooLong(std::int32_t lLine) {
  throw std::overflow_error("Line " + std::to_string(lLine) +
                            " of the setup list is too long: a tab, an \"=\" or a space between "
                            "words stands beyond its first 32767 characters.");
}

// Gives nIndex (from 0; npos for none) back when it fits into 16 bits, counted
// from 1.
std::size_t CheckPosition(std::size_t nIndex, std::int32_t lLine) {
  if (nIndex >= LastPosition && nIndex != std::string_view::npos) FailTooLong(lLine);
  return nIndex;
}

// The text before the first space.
std::string_view FirstWord(std::string_view sText, std::int32_t lLine) {
  return sText.substr(0, CheckPosition(sText.find(' '), lLine));
}

// Whether the text's first word is that keyword, in any letter case: a letter of ASCII is
// one bit away from its capital.
bool BeginsWith(std::string_view sText, std::string_view sKeyword) {
  const std::size_t nEnd = sKeyword.size();
  return sText.size() >= nEnd && (sText.size() == nEnd || sText[nEnd] == ' ') &&
         std::equal(sKeyword.begin(), sKeyword.end(), sText.begin(),
                    [](char cCapital, char c) { return (c & ~0x20) == cCapital; });
}

// What stands behind the keyword of a block start: its type, its name.
Statement SplitBlockStart(std::string_view sContent, std::string_view sBehind, std::int32_t lLine) {
  const std::string_view sType = FirstWord(sBehind, lLine);
  const std::string_view sName = FirstWord(TrimLeft(sBehind.substr(sType.size())), lLine);
  return {Statement::Kind::StartBlock, sType, sName, sContent};
}

}  // namespace

std::string ReplaceTabs(std::string_view sLine, std::int32_t lLine) {
  CheckPosition(sLine.rfind('\t'), lLine);
  std::string sReplaced(sLine);
  std::replace(sReplaced.begin(), sReplaced.end(), '\t', ' ');
  return sReplaced;
}

Statement SplitStatement(std::string_view sLine, std::int32_t lLine) {
  const std::string_view sContent = TrimSpaces(sLine);
  if (sContent.empty() || sContent.front() == ';') return {Statement::Kind::None, {}, {}, sContent};
  if (sContent.size() > LastPosition) FirstWord(sContent, lLine);  // must end before it
  if (BeginsWith(sContent, Block))
    return SplitBlockStart(sContent, TrimLeft(sContent.substr(Block.size())), lLine);
  if (BeginsWith(sContent, "END")) return {Statement::Kind::EndBlock, {}, {}, sContent};
  return SplitEntry(sContent, lLine);
}

Statement SplitEntry(std::string_view sLine, std::int32_t lLine) {
  const std::size_t nEquals = CheckPosition(sLine.find('='), lLine);
  if (nEquals == std::string_view::npos) return {Statement::Kind::NotUnderstood, {}, {}, sLine};
  return {Statement::Kind::KeyValue, TrimRight(sLine.substr(0, nEquals)),
          TrimLeft(sLine.substr(nEquals + 1)), sLine};
}

}  // namespace trelin
