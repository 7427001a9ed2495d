#include "check/statements.h"

#include <cstddef>
#include <stdexcept>
#include <utility>

#include "check/encoding.h"
#include "check/meant_line.h"
#include "suite/block_parser.h"
#include "texts/error.h"
#include "texts/messages.h"

namespace trelin {

namespace {

bool IsStatement(const std::string& sLine) {
  const std::size_t nFirst = sLine.find_first_not_of(" \t");
  return nFirst != std::string::npos && sLine[nFirst] != ';';
}

class StatementReader {
 public:
  StatementReader(const std::string& sPath, const SourceLines& lines, Findings& faults)
      : lines_(lines), faults_(faults) {
    objParser_.OpenFile(sPath, false);
  }

  std::vector<Statement> ReadAll() {
    while (ReadOne()) {
    }
    return std::move(statements_);
  }

 private:
  // False at the end of the file.
  bool ReadOne() {
    try {
      const BlockParser::Token token = objParser_.GetToken();
      if (token == BlockParser::TokenEndFile()) return false;
      if (!TakeMark()) Take(token);
    } catch (const Error& error) {
      if (!TakeMark(&error)) TakeMeant(error.Description());
    } catch (const std::overflow_error& error) {
      CountLine();
      AddFault(Rule::LineTooLong, error.what());
    }
    lLast_ = Line();
    return true;
  }

  // The number of the line read last. The parser leaves out some that it cannot
  // read.
  std::int32_t Line() const { return objParser_.CurrentLine() + lUncounted_; }

  // The parser leaves a line out of its count whose tab stands too far behind.
  // It has then counted blank lines and comments only.
  void CountLine() {
    const bool bCounted = Line() > lLast_ && IsStatement(lines_.Line(Line()));
    if (!bCounted) ++lUncounted_;
  }

  void AddFault(Rule rule, const std::string& sMessage, const std::string& sHint = "") {
    faults_.push_back({rule, Severity::Error, lines_.Statement(Line()), sMessage, sHint});
  }

  void Take(BlockParser::Token token) {
    Statement statement;
    statement.place = lines_.Statement(Line());
    if (token == BlockParser::TokenStartBlock()) {
      statement.kind = Statement::Kind::BlockStart;
      statement.sWord = objParser_.BlockType();
    } else if (token == BlockParser::TokenKeyValue()) {
      statement.kind = Statement::Kind::Entry;
      statement.sWord = objParser_.Key();
      statement.sValue = objParser_.Value();
    }
    statements_.push_back(std::move(statement));
  }

  // A byte order mark makes the first line one that the launcher does not
  // know. It is reported in the words for that, and the line is read without.
  bool TakeMark(const Error* pError = nullptr) {
    const std::string& sLine = lines_.Line(1);
    if (Line() != 1 || !sLine.starts_with(Utf8Mark)) return false;
    faults_.push_back({Rule::ByteOrderMark,
                       Severity::Error,
                       {1, 1, static_cast<std::int32_t>(Utf8Mark.size())},
                       pError != nullptr ? pError->Description()
                                         : FormatResourceString(TextNumber::NoBeginning, 1),
                       "The file begins with a UTF-8 byte order mark, which the launcher takes for "
                       "text. Save it in the ANSI code page (Windows-1252)."});
    const std::string sRest = objParser_.ExpandTabs(sLine.substr(Utf8Mark.size()));
    if (!IsStatement(sRest)) return true;
    const std::size_t nFirst = sRest.find_first_not_of(' ');
    TakeLine(sRest.substr(nFirst, sRest.find_last_not_of(' ') + 1 - nFirst));
    return true;
  }

  // A line that is no statement, for what it was most probably meant to be, so
  // that one wrong word does not take the sense of the lines behind it.
  void TakeMeant(const std::string& sMessage) {
    const std::string sMeant = MeantLine(lines_.Line(Line()));
    AddFault(Rule::NotUnderstood, sMessage,
             sMeant.empty() ? "" : "Here it is read as \"" + sMeant + "\".");
    if (!sMeant.empty()) TakeLine(objParser_.ExpandTabs(sMeant));
  }

  void TakeLine(const std::string& sLine) {
    if (objParser_.ParseBlock(sLine)) return Take(BlockParser::TokenStartBlock());
    if (objParser_.ParseEnd(sLine)) return Take(BlockParser::TokenEndBlock());
    if (objParser_.ParseKeyValue(sLine)) return Take(BlockParser::TokenKeyValue());
    AddFault(Rule::NotUnderstood, FormatResourceString(TextNumber::LineNotUnderstood, 1));
  }

  BlockParser objParser_;
  const SourceLines& lines_;
  Findings& faults_;
  std::vector<Statement> statements_;
  std::int32_t lUncounted_ = 0;
  std::int32_t lLast_ = 0;  // the line that was taken last
};

}  // namespace

std::vector<Statement> ReadStatements(const std::string& sPath, const SourceLines& lines,
                                      Findings& faults) {
  return StatementReader(sPath, lines, faults).ReadAll();
}

}  // namespace trelin
