#include "suite/block_parser.h"

#include <algorithm>
#include <span>

#include "seam/platform.h"
#include "texts/error.h"
#include "texts/messages.h"

namespace trelin {

namespace {

// Most words are in capitals that are the same in every code page, and the system need not
// be asked.
void MakeUpperCase(std::span<char> sText) {
  const auto isCapital = [](char c) { return c >= ' ' && c <= 'Z'; };
  if (!std::all_of(sText.begin(), sText.end(), isCapital)) TheSystem().MakeUpperCase(sText);
}

}  // namespace

void BlockParser::OpenFile(const std::string& sFile, bool bWrite) {
  if (bWrite) throw Error(5000, "BlockParser.Open", "Not implemented at this time");
  lines_.Open(sFile);
  lCurrentLine_ = 0;
}

void BlockParser::CloseFile() { lines_.Close(); }

BlockParser::Token BlockParser::GetToken() {
  std::string sExpanded;
  for (std::string_view sLine; lines_.NextLine(sLine);) {
    if (lines_.HasTab()) sLine = sExpanded = ReplaceTabs(sLine, lCurrentLine_ + 1);
    const Statement statement = SplitStatement(sLine, ++lCurrentLine_);
    if (statement.kind != Statement::Kind::None) return Take(statement);
  }
  return Token::EndFile;
}

BlockParser::Token BlockParser::Take(const Statement& statement) {
  switch (statement.kind) {
    case Statement::Kind::StartBlock:
      sBlockType_ = statement.sWord;
      MakeUpperCase(sBlockType_);
      sBlockName_ = statement.sRest;
      return Token::StartBlock;
    case Statement::Kind::EndBlock:
      return Token::EndBlock;
    case Statement::Kind::KeyValue:
      TakeEntry(statement);
      return Token::KeyValue;
    default:
      throw Error(5000, "BlockParse.GetToken",
                  FormatResourceString(TextNumber::LineNotUnderstood, lCurrentLine_));
  }
}

void BlockParser::TakeEntry(const Statement& statement) {
  sEntry_ = statement.sContent;
  const std::size_t nKey = statement.sWord.size();
  MakeUpperCase(std::span(sEntry_.data(), nKey));
  sKey_ = std::string_view(sEntry_).substr(0, nKey);
  sValue_ = std::string_view(sEntry_).substr(sEntry_.size() - statement.sRest.size());
}

bool BlockParser::TakeIf(const Statement& statement, Statement::Kind kind) {
  const bool bIs = statement.kind == kind;
  if (bIs) Take(statement);
  return bIs;
}

bool BlockParser::ParseBlock(std::string_view sLine) {
  return TakeIf(SplitStatement(sLine, lCurrentLine_), Statement::Kind::StartBlock);
}

bool BlockParser::ParseEnd(std::string_view sLine) const {
  return SplitStatement(sLine, lCurrentLine_).kind == Statement::Kind::EndBlock;
}

bool BlockParser::ParseKeyValue(std::string_view sLine) {
  return TakeIf(SplitEntry(sLine, lCurrentLine_), Statement::Kind::KeyValue);
}

std::string BlockParser::ExpandTabs(const std::string& sSource) const {
  return ReplaceTabs(sSource, lCurrentLine_ + 1);
}

}  // namespace trelin
