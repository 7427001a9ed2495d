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

void SetUpperCase(std::string& sText, std::string_view sValue) {
  sText = sValue;
  TheSystem().MakeUpperCase(sText);
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

// The text before the first space.
std::string_view FirstWord(std::string_view sText, std::int32_t lLine) {
  return sText.substr(0, CheckPosition(sText.find(' '), lLine));
}

// Keywords are matched in any letter case.
bool IsKeyword(std::string_view sWord, std::string_view sKeyword) {
  if (sWord.size() != sKeyword.size()) return false;
  std::string sUpper(sWord);
  TheSystem().MakeUpperCase(sUpper);
  return sUpper == sKeyword;
}

}  // namespace

void BlockParser::OpenFile(const std::string& sFile, bool bWrite) {
  if (bWrite) throw Error(5000, "BlockParser.Open", "Not implemented at this time");
  lines_.Open(sFile);
  lCurrentLine_ = 0;
}

void BlockParser::CloseFile() { lines_.Close(); }

BlockParser::Token BlockParser::GetToken() {
  for (std::string_view sLine; lines_.NextLine(sLine);) {
    std::string sExpanded;
    if (sLine.find('\t') != std::string_view::npos)
      sLine = sExpanded = ExpandTabs(std::string(sLine));
    sLine = TrimSpaces(sLine);
    ++lCurrentLine_;
    if (!sLine.empty() && sLine.front() != ';') return Classify(sLine);
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
  const std::string_view sWord = FirstWord(sLine, lCurrentLine_);
  if (!IsKeyword(sWord, "BLOCK")) return false;
  const std::string_view sRest = TrimSpaces(sLine.substr(sWord.size()));
  const std::string_view sType = FirstWord(sRest, lCurrentLine_);
  const std::string_view sBehind = TrimSpaces(sRest.substr(sType.size()));
  const std::string_view sName = FirstWord(sBehind, lCurrentLine_);
  SetUpperCase(sBlockType_, sType);
  sBlockName_ = sName;
  return true;
}

bool BlockParser::ParseEnd(std::string_view sLine) const {
  return IsKeyword(FirstWord(sLine, lCurrentLine_), "END");
}

bool BlockParser::ParseKeyValue(std::string_view sLine) {
  const std::size_t nEquals = CheckPosition(sLine.find('='), lCurrentLine_);
  if (nEquals == std::string_view::npos) return false;
  SetUpperCase(sKey_, TrimSpaces(sLine.substr(0, nEquals)));
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
