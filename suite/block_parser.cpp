#include "suite/block_parser.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <utility>

#include "seam/platform.h"
#include "texts/error.h"
#include "texts/messages.h"
#include "texts/text.h"

namespace trelin {

namespace {

constexpr std::size_t LastPosition = std::numeric_limits<std::int16_t>::max();

std::string UpperCase(std::string_view sText) {
  std::string sUpper(sText);
  TheSystem().MakeUpperCase(sUpper);
  return sUpper;
}

[[noreturn]] void FailTooLong(std::int32_t lLine) {
  throw std::overflow_error("Line " + std::to_string(lLine) +
                            " of the setup list is too long: a tab, an \"=\" or a space between "
                            "words stands beyond its first 32767 characters.");
}

// Gives nIndex (from 0; npos for none) of line lLine back when it fits into
// 16 bits, counted from 1.
std::size_t CheckPosition(std::size_t nIndex, std::int32_t lLine) {
  if (nIndex >= LastPosition && nIndex != std::string_view::npos) FailTooLong(lLine);
  return nIndex;
}

// The word before the first space, and what follows that space, trimmed.
std::pair<std::string_view, std::string_view> SplitWord(std::string_view sText,
                                                        std::int32_t lLine) {
  const std::size_t nSpace = CheckPosition(sText.find(' '), lLine);
  if (nSpace == std::string_view::npos) return {sText, {}};
  return {sText.substr(0, nSpace), TrimSpaces(sText.substr(nSpace))};
}

bool IsKeyword(std::string_view sWord, std::string_view sKeyword) {
  return sWord.size() == sKeyword.size() && UpperCase(sWord) == sKeyword;
}

}  // namespace

void BlockParser::OpenFile(const std::string& sFile, bool bWrite) {
  if (bWrite) throw Error(5000, "BlockParser.Open", "Not implemented at this time");
  lines_.Open(sFile);
  lCurrentLine_ = 0;
}

void BlockParser::CloseFile() { lines_.Close(); }

BlockParser::Token BlockParser::GetToken() {
  for (std::string sLine; lines_.NextLine(sLine);) {
    const std::string sExpanded = ExpandTabs(sLine);
    const std::string_view sTrimmed = TrimSpaces(sExpanded);
    ++lCurrentLine_;
    if (!sTrimmed.empty() && sTrimmed.front() != ';') return Classify(sTrimmed);
  }
  return Token::EndFile;
}

BlockParser::Token BlockParser::Classify(std::string_view sLine) {
  if (ParseBlock(sLine)) return Token::StartBlock;
  if (ParseEnd(sLine)) return Token::EndBlock;
  if (ParseKeyValue(sLine)) return Token::KeyValue;
  throw Error(5000, "BlockParse.GetToken",
              FormatResourceString(TextNumber::LineNotUnderstood, lCurrentLine_));
}

bool BlockParser::ParseBlock(std::string_view sLine) {
  const auto [word, rest] = SplitWord(sLine, lCurrentLine_);
  if (!IsKeyword(word, "BLOCK")) return false;
  const auto [type, remainder] = SplitWord(rest, lCurrentLine_);
  const auto [name, ignored] = SplitWord(remainder, lCurrentLine_);
  sBlockType_ = UpperCase(type);
  sBlockName_ = name;
  return true;
}

bool BlockParser::ParseEnd(std::string_view sLine) const {
  return IsKeyword(SplitWord(sLine, lCurrentLine_).first, "END");
}

bool BlockParser::ParseKeyValue(std::string_view sLine) {
  const std::size_t nEquals = CheckPosition(sLine.find('='), lCurrentLine_);
  if (nEquals == std::string_view::npos) return false;
  sKey_ = UpperCase(TrimSpaces(sLine.substr(0, nEquals)));
  sValue_ = TrimSpaces(sLine.substr(nEquals + 1));
  return true;
}

// Called for the line behind the current one, which counts only afterwards.
std::string BlockParser::ExpandTabs(const std::string& sSource) const {
  CheckPosition(sSource.rfind('\t'), lCurrentLine_ + 1);
  std::string sExpanded = sSource;
  std::replace(sExpanded.begin(), sExpanded.end(), '\t', ' ');
  return sExpanded;
}

}  // namespace trelin
