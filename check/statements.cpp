#include "check/statements.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "check/encoding.h"
#include "check/meant_line.h"
#include "texts/messages.h"
#include "texts/text.h"

namespace trelin {

namespace {

class StatementReader {
 public:
  explicit StatementReader(CheckedList& list) : list_(list) {}

  void Read() {
    list_.statements.reserve(static_cast<std::size_t>(list_.lines.Count()));
    for (lLine_ = 1; lLine_ <= list_.lines.Count(); ++lLine_) {
      try {
        ReadLine(list_.lines.Line(lLine_));
      } catch (const std::overflow_error& error) {
        AddFault(&rule::LineTooLong, error.what());
      }
    }
  }

 private:
  void ReadLine(std::string_view sLine) {
    const std::string_view sText = InSpaces(sLine);
    const Statement statement = SplitStatement(sText, lLine_);
    if (lLine_ == 1 && sLine.starts_with(Utf8Mark)) return TakeMark(sText, statement.kind);
    if (statement.kind == Statement::Kind::NotUnderstood) return TakeMeant(sText);
    Take(sText, statement);
  }

  std::string_view Keep(std::string sText) {
    return list_.spellings.emplace_back(std::move(sText));
  }

  // The line with spaces for its tabs: itself when it has none.
  std::string_view InSpaces(std::string_view sLine) {
    return sLine.find('\t') == std::string_view::npos ? sLine : Keep(ReplaceTabs(sLine, lLine_));
  }

  void AddFault(const Rule* pRule, std::string sMessage, std::string sHint = "") {
    list_.faults.push_back({pRule, Severity::Error, list_.PlaceInLine(lLine_),
                            list_.LaunchersWords(std::move(sMessage)), std::move(sHint)});
  }

  // A part of sText, which has the columns of the line at hand.
  static StatementPart PartOf(std::string_view sPart, std::string_view sText) {
    return {sPart.data(), static_cast<std::int32_t>(sPart.data() - sText.data() + 1),
            static_cast<std::int32_t>(sPart.size())};
  }

  void Take(std::string_view sText, const Statement& statement) {
    if (statement.kind == Statement::Kind::None) return;
    const bool bNamed = statement.kind == Statement::Kind::KeyValue || !statement.sWord.empty();
    StatementPart key = PartOf(bNamed ? statement.sWord : statement.sContent, sText);
    key.pText = bNamed ? Upper(statement.sWord).data() : nullptr;
    const bool bValue = statement.kind != Statement::Kind::EndBlock;
    list_.statements.push_back(
        {statement.kind, lLine_, key, bValue ? PartOf(statement.sRest, sText) : StatementPart()});
  }

  // A known key is the text that tables have: rules compare keys so often that texts
  // all over the file would keep them waiting.
  std::string_view Upper(std::string_view sWord) {
    for (const BlockKind kind : {BlockKind::Application, BlockKind::Dependency})
      if (const auto nKey = KeyNumber(kind, sWord)) return KeysOf(kind)[*nKey];
    std::string sUpper = UpperCase(sWord);
    return sUpper == sWord ? sWord : Keep(std::move(sUpper));
  }

  // A byte order mark makes the first line one that the launcher does not know, or
  // a strange first statement. It is reported in the words for that, and what is
  // behind it counts.
  void TakeMark(std::string_view sText, Statement::Kind kind) {
    const TextNumber number = kind == Statement::Kind::NotUnderstood ? TextNumber::LineNotUnderstood
                                                                     : TextNumber::NoBeginning;
    list_.faults.push_back({&rule::ByteOrderMark,
                            Severity::Error,
                            {1, 1, static_cast<std::int32_t>(Utf8Mark.size())},
                            list_.LaunchersWords(FormatResourceString(number, 1)),
                            "The file begins with a UTF-8 byte order mark, which the launcher "
                            "takes for text. " +
                                SaveInCodePage()});
    const std::string_view sBehind = sText.substr(Utf8Mark.size());
    const Statement statement = SplitStatement(sBehind, 1);
    if (statement.kind == Statement::Kind::NotUnderstood)
      return AddFault(&rule::NotUnderstood, FormatResourceString(TextNumber::LineNotUnderstood, 1));
    Take(sText, statement);
  }

  // A line that is no statement, for what it was most probably meant to be, so
  // that one wrong word does not take the sense of the lines behind it.
  void TakeMeant(std::string_view sText) {
    const Statement meant = MeantStatement(sText);
    const bool bMeans = meant.kind != Statement::Kind::None;
    AddFault(&rule::NotUnderstood, FormatResourceString(TextNumber::LineNotUnderstood, lLine_),
             bMeans ? "Here it is read as \"" + Written(meant) + "\"." : "");
    const bool bWithoutValue = meant.kind == Statement::Kind::KeyValue && meant.sRest.empty();
    if (bMeans && !bWithoutValue)
      list_.faults.back().correction = {list_.PlaceInLine(lLine_), Written(meant)};
    Take(sText, meant);
  }

  CheckedList& list_;
  std::int32_t lLine_ = 0;
};

}  // namespace

void ReadStatements(CheckedList& list) { StatementReader(list).Read(); }

}  // namespace trelin
