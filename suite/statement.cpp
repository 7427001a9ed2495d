#include "suite/statement.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <stdexcept>

#include "texts/text.h"

namespace trelin {

namespace {

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

std::string_view Behind(std::string_view sText, std::string_view sWord) {
  return TrimSpaces(sText.substr(sWord.size()));
}

// Keywords are matched in any letter case.
bool IsKeyword(std::string_view sWord, std::string_view sKeyword) {
  return sWord.size() == sKeyword.size() && UpperCase(sWord) == sKeyword;
}

}  // namespace

std::string ReplaceTabs(std::string_view sLine, std::int32_t lLine) {
  CheckPosition(sLine.rfind('\t'), lLine);
  std::string sExpanded(sLine);
  std::replace(sExpanded.begin(), sExpanded.end(), '\t', ' ');
  return sExpanded;
}

Statement SplitStatement(std::string_view sLine, std::int32_t lLine) {
  const std::string_view sContent = TrimSpaces(sLine);
  if (sContent.empty() || sContent.front() == ';') return {Statement::Kind::None, {}, {}, sContent};
  if (const auto start = SplitBlockStart(sContent, lLine)) return *start;
  if (const auto end = SplitBlockEnd(sContent, lLine)) return *end;
  if (const auto entry = SplitEntry(sContent, lLine)) return *entry;
  return {Statement::Kind::NotUnderstood, {}, {}, sContent};
}

std::optional<Statement> SplitBlockStart(std::string_view sLine, std::int32_t lLine) {
  const std::string_view sKeyword = FirstWord(sLine, lLine);
  if (!IsKeyword(sKeyword, "BLOCK")) return std::nullopt;
  const std::string_view sBehind = Behind(sLine, sKeyword);
  const std::string_view sType = FirstWord(sBehind, lLine);
  const std::string_view sName = FirstWord(Behind(sBehind, sType), lLine);
  return Statement{Statement::Kind::StartBlock, sType, sName, sLine};
}

std::optional<Statement> SplitBlockEnd(std::string_view sLine, std::int32_t lLine) {
  if (!IsKeyword(FirstWord(sLine, lLine), "END")) return std::nullopt;
  return Statement{Statement::Kind::EndBlock, {}, {}, sLine};
}

std::optional<Statement> SplitEntry(std::string_view sLine, std::int32_t lLine) {
  const std::size_t nEquals = CheckPosition(sLine.find('='), lLine);
  if (nEquals == std::string_view::npos) return std::nullopt;
  return Statement{Statement::Kind::KeyValue, TrimSpaces(sLine.substr(0, nEquals)),
                   TrimSpaces(sLine.substr(nEquals + 1)), sLine};
}

}  // namespace trelin
