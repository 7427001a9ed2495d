#include "setuplist/block_parser.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "platform/platform.h"
#include "startup/error.h"
#include "startup/messages.h"
#include "startup/text.h"

namespace trelin {

namespace {

constexpr std::size_t BufferBytes = 65536;

std::string UpperCase(std::string_view sText) {
  std::string sUpper(sText);
  TheSystem().MakeUpperCase(sUpper);
  return sUpper;
}

bool IsKeyword(std::string_view sWord, std::string_view sKeyword) {
  return sWord.size() == sKeyword.size() && UpperCase(sWord) == sKeyword;
}

// The end of the line that begins at pBegin: its CR or LF, or pEnd.
const char* FindLineEnd(const char* pBegin, const char* pEnd) {
  const auto find = [pBegin](char c, const char* pLimit) {
    const void* pFound = std::memchr(pBegin, c, static_cast<std::size_t>(pLimit - pBegin));
    return pFound != nullptr ? static_cast<const char*>(pFound) : pLimit;
  };
  return find('\r', find('\n', pEnd));
}

// Gives nIndex (from 0; npos for none) of line lLine back when it fits into
// 16 bits, counted from 1.
std::size_t CheckPosition(std::size_t nIndex, std::int32_t lLine) {
  if (nIndex != std::string::npos && nIndex >= std::numeric_limits<std::int16_t>::max())
    throw std::overflow_error("Line " + std::to_string(lLine) +
                              " of the setup list is too long: a tab, an \"=\" or a space between "
                              "words stands beyond its first 32767 characters.");
  return nIndex;
}

// The word before the first space, and what follows that space, trimmed.
std::pair<std::string_view, std::string_view> SplitWord(std::string_view sText,
                                                        std::int32_t lLine) {
  const std::size_t nSpace = CheckPosition(sText.find(' '), lLine);
  if (nSpace == std::string_view::npos) return {sText, {}};
  return {sText.substr(0, nSpace), TrimSpaces(sText.substr(nSpace))};
}

}  // namespace

void BlockParser::OpenFile(const std::string& sFile, bool bWrite) {
  if (bWrite) throw Error(5000, "BlockParser.Open", "Not implemented at this time");
  CloseFile();
  file_ = TheSystem().OpenInput(sFile);
  lCurrentLine_ = 0;
}

void BlockParser::CloseFile() {
  file_.reset();
  nNext_ = nEnd_ = 0;
  bCarriageReturn_ = false;
}

std::int16_t BlockParser::GetToken() {
  while (!AtEnd()) {
    ReadLine();
    const std::string sLine(TrimSpaces(ExpandTabs(sLine_)));
    ++lCurrentLine_;
    if (!sLine.empty() && sLine.front() != ';') return Classify(sLine);
  }
  return TokenEndFile();
}

std::int16_t BlockParser::Classify(const std::string& sLine) {
  if (ParseBlock(sLine)) return TokenStartBlock();
  if (ParseEnd(sLine)) return TokenEndBlock();
  if (ParseKeyValue(sLine)) return TokenKeyValue();
  throw Error(5000, "BlockParse.GetToken", FormatResourceString(35008, lCurrentLine_));
}

bool BlockParser::ParseBlock(const std::string& sLine) {
  const auto [sFirst, sRest] = SplitWord(sLine, lCurrentLine_);
  if (!IsKeyword(sFirst, "BLOCK")) return false;
  const auto [sType, sRemainder] = SplitWord(sRest, lCurrentLine_);
  const auto [sName, sIgnored] = SplitWord(sRemainder, lCurrentLine_);
  sBlockType_ = UpperCase(sType);
  sBlockName_ = sName;
  return true;
}

bool BlockParser::ParseEnd(const std::string& sLine) const {
  return IsKeyword(SplitWord(sLine, lCurrentLine_).first, "END");
}

bool BlockParser::ParseKeyValue(const std::string& sLine) {
  const std::size_t nEquals = CheckPosition(sLine.find('='), lCurrentLine_);
  if (nEquals == std::string::npos) return false;
  const std::string_view sText = sLine;
  sKey_ = UpperCase(TrimSpaces(sText.substr(0, nEquals)));
  sValue_ = TrimSpaces(sText.substr(nEquals + 1));
  return true;
}

// Called for the line behind the current one, which counts only afterwards.
std::string BlockParser::ExpandTabs(const std::string& sSource) const {
  CheckPosition(sSource.rfind('\t'), lCurrentLine_ + 1);
  std::string sExpanded = sSource;
  std::replace(sExpanded.begin(), sExpanded.end(), '\t', ' ');
  return sExpanded;
}

bool BlockParser::AtEnd() {
  if (!file_) return true;
  for (;;) {
    if (nNext_ == nEnd_) {
      buffer_.resize(BufferBytes);
      nNext_ = 0;
      nEnd_ = file_->Read(buffer_.data(), buffer_.size());
      if (nEnd_ == 0) return true;
    }
    if (!std::exchange(bCarriageReturn_, false) || buffer_[nNext_] != '\n') return false;
    ++nNext_;
  }
}

// Reads the next line, without its end, into sLine_. To be called when AtEnd
// has just returned false.
void BlockParser::ReadLine() {
  sLine_.clear();
  do {
    const char* pBegin = buffer_.data() + nNext_;
    const char* pLimit = buffer_.data() + nEnd_;
    const char* pEnd = FindLineEnd(pBegin, pLimit);
    sLine_.append(pBegin, pEnd);
    nNext_ = static_cast<std::size_t>(pEnd - buffer_.data());
    if (pEnd != pLimit) {
      bCarriageReturn_ = *pEnd == '\r';
      ++nNext_;
      return;
    }
  } while (!AtEnd());
}

}  // namespace trelin
