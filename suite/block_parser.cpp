#include "suite/block_parser.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <utility>

#include "seam/platform.h"
#include "texts/error.h"
#include "texts/messages.h"

namespace trelin {

namespace {

constexpr std::string_view BlockKeyword = "BLOCK";
constexpr std::string_view EndKeyword = "END";
constexpr std::size_t LastPosition = std::numeric_limits<std::int16_t>::max();

std::string_view View(std::span<char> text) { return {text.data(), text.size()}; }

std::span<char> Trim(std::span<char> text) {
  char* pBegin = text.data();
  char* pEnd = pBegin + text.size();
  while (pBegin != pEnd && *pBegin == ' ') ++pBegin;
  while (pBegin != pEnd && pEnd[-1] == ' ') --pEnd;
  return {pBegin, pEnd};
}

std::string_view UpperCase(std::span<char> text) {
  TheSystem().MakeUpperCase(text);
  return View(text);
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

// A line that is short enough need not be searched for it.
void CheckFirstSpace(std::span<char> line, std::int32_t lLine) {
  if (line.size() >= LastPosition) CheckPosition(View(line).find(' '), lLine);
}

// Whether the line's first word is that keyword.
bool StartsWithWord(std::span<char> line, std::string_view sKeyword, std::int32_t lLine) {
  CheckFirstSpace(line, lLine);
  const std::size_t nLength = sKeyword.size();
  if (line.size() < nLength || (line.size() > nLength && line[nLength] != ' ')) return false;
  std::string sWord(line.data(), nLength);
  return UpperCase(sWord) == sKeyword;
}

// The word before the first space, and what follows that space, trimmed.
std::pair<std::span<char>, std::span<char>> SplitWord(std::span<char> text, std::int32_t lLine) {
  const std::size_t nSpace = CheckPosition(View(text).find(' '), lLine);
  if (nSpace == std::string_view::npos) return {text, {}};
  return {text.first(nSpace), Trim(text.subspan(nSpace))};
}

}  // namespace

void BlockParser::OpenFile(const std::string& sFile, bool bWrite) {
  if (bWrite) throw Error(5000, "BlockParser.Open", "Not implemented at this time");
  lines_.Open(sFile);
  lCurrentLine_ = 0;
}

void BlockParser::CloseFile() { lines_.Close(); }

std::int16_t BlockParser::GetToken() {
  do {
    for (std::span<char> line; lines_.NextLine(line);) {
      if (lines_.HasTabs()) ExpandTabsOf(line);
      line = Trim(line);
      ++lCurrentLine_;
      if (!line.empty() && line.front() != ';') return Classify(line);
    }
    KeepProperties();
  } while (lines_.ReadOn());
  return TokenEndFile();
}

// Most lines differ in their first letter from both keywords.
std::int16_t BlockParser::Classify(std::span<char> line) {
  CheckFirstSpace(line, lCurrentLine_);
  switch (line.front()) {
    case 'B':
    case 'b':
      if (ReadBlock(line)) return TokenStartBlock();
      break;
    case 'E':
    case 'e':
      if (StartsWithWord(line, EndKeyword, lCurrentLine_)) return TokenEndBlock();
      break;
    default:
      break;
  }
  if (ReadKeyValue(line)) return TokenKeyValue();
  throw Error(5000, "BlockParse.GetToken",
              FormatResourceString(TextNumber::LineNotUnderstood, lCurrentLine_));
}

bool BlockParser::ReadBlock(std::span<char> line) {
  if (!StartsWithWord(line, BlockKeyword, lCurrentLine_)) return false;
  const auto [type, remainder] = SplitWord(Trim(line.subspan(BlockKeyword.size())), lCurrentLine_);
  const auto [name, ignored] = SplitWord(remainder, lCurrentLine_);
  BlockType_.sText = UpperCase(type);
  BlockName_.sText = View(name);
  return true;
}

bool BlockParser::ReadKeyValue(std::span<char> line) {
  const std::size_t nEquals = CheckPosition(View(line).find('='), lCurrentLine_);
  if (nEquals == std::string_view::npos) return false;
  Key_.sText = UpperCase(Trim(line.first(nEquals)));
  Value_.sText = View(Trim(line.subspan(nEquals + 1)));
  return true;
}

// Called for the line behind the current one, which counts only afterwards.
void BlockParser::ExpandTabsOf(std::span<char> line) const {
  CheckPosition(View(line).rfind('\t'), lCurrentLine_ + 1);
  std::replace(line.begin(), line.end(), '\t', ' ');
}

std::string BlockParser::ExpandTabs(const std::string& sSource) const {
  std::string sExpanded = sSource;
  ExpandTabsOf(sExpanded);
  return sExpanded;
}

bool BlockParser::ParseBlock(const std::string& sLine) { return ReadBlock(OwnLine(sLine)); }

bool BlockParser::ParseEnd(const std::string& sLine) const {
  std::string sCopy = sLine;
  return StartsWithWord(sCopy, EndKeyword, lCurrentLine_);
}

bool BlockParser::ParseKeyValue(const std::string& sLine) { return ReadKeyValue(OwnLine(sLine)); }

// The properties may lie in the line that was there before.
std::span<char> BlockParser::OwnLine(const std::string& sLine) {
  KeepProperties();
  sOwnLine_ = sLine;
  return sOwnLine_;
}

void BlockParser::KeepProperties() {
  for (Property* property : {&Key_, &Value_, &BlockType_, &BlockName_}) property->Keep();
}

}  // namespace trelin
