#include "check/list_reader.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>

#include "check/encoding.h"
#include "check/nearest.h"
#include "check/statements.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "shared/read_file.h"
#include "texts/messages.h"

namespace trelin {

namespace {

constexpr const char* Outer = "SETUPLIST";
constexpr const char* Product = "APPLICATION";
constexpr const char* Prerequisite = "DEPENDENCY";

// The block type that a word most probably stands for: one that it differs from
// in a few letters, or else the one that is expected there.
std::string MeantType(const std::string& sType, const char* pExpected) {
  constexpr std::size_t FewLetters = 3;
  const std::string sNearest = NearestWord(sType, {Outer, Product, Prerequisite});
  return EditDistance(sType, sNearest) <= FewLetters ? sNearest : pExpected;
}

const char* ExpectedIn(BlockKind kind) {
  return kind == BlockKind::SetupList ? Product : Prerequisite;
}

class StructureReader {
 public:
  StructureReader(std::vector<Statement> statements, CheckedList& list)
      : statements_(std::move(statements)), list_(list) {}

  void Read() {
    if (!ReadStart()) return;
    ReadBlock(list_.outer);
    const bool bHasEnd = lEnd_ > 0 && nNext_ > 0 && statements_[nNext_ - 1].place.lLine == lEnd_;
    if (bHasEnd) HintAtEnd();
    while (!AtEnd()) ReadAfterEnd();
  }

 private:
  bool AtEnd() const { return nNext_ == statements_.size(); }
  const Statement& Next() const { return statements_[nNext_]; }
  bool NextIsBlock() const { return Next().kind == Statement::Kind::BlockStart; }

  void AddFault(Rule rule, const Place& place, const std::string& sMessage,
                const std::string& sHint) {
    list_.faults.push_back({rule, Severity::Error, place, sMessage, sHint});
  }

  // Up to the first block's start line, and over it if it is that of the outer
  // block. False when there is no block.
  bool ReadStart() {
    if (AtEnd() || !NextIsBlock()) {
      // A line that is no statement at all is reported as such already.
      const Place place = AtEnd() ? list_.lines.Statement(list_.lines.Count()) : Next().place;
      if (!AtEnd() || list_.faults.empty())
        AddFault(Rule::MustBegin, place, FormatResourceString(TextNumber::NoBeginning, place.lLine),
                 "");
      while (!AtEnd() && !NextIsBlock()) ++nNext_;
      if (AtEnd()) return false;
    } else if (Next().sWord != Outer) {
      AddFault(Rule::WrongBlock, list_.lines.BlockType(Next().place.lLine),
               FormatResourceString(TextNumber::WrongBlock, "BLOCK", Next().place.lLine, Outer,
                                    Next().sWord),
               "");
    }
    list_.outer.start = Next().place;
    bOuterStarted_ = MeantType(Next().sWord, Outer) == Outer;
    if (bOuterStarted_) ++nNext_;
    return true;
  }

  // Reads up to and over the block's END.
  void ReadBlock(ListBlock& block) {
    while (!AtEnd() && !bEndImplied_) {
      const Statement& statement = Next();
      if (statement.kind == Statement::Kind::BlockEnd) {
        lEnd_ = statement.place.lLine;
        ++nNext_;
        return;
      }
      if (statement.kind == Statement::Kind::BlockStart) {
        ReadInner(block);
      } else {
        AddEntry(block, statement);
        ++nNext_;
      }
      // The END that is missing may be that of this block alone; that of the
      // outer one is not.
      if (bEndImplied_ &&
          (block.kind == BlockKind::SetupList || Accepts(block.kind, MeantType(Next().sWord, ""))))
        bEndImplied_ = false;
    }
    const bool bStarted = &block != &list_.outer || bOuterStarted_;
    if (AtEnd() && bStarted && !bAfterEndReported_) AddMissingEnd(block);
  }

  void AddEntry(ListBlock& block, const Statement& statement) const {
    const std::int32_t lLine = statement.place.lLine;
    block.entries.push_back(
        {statement.sWord, statement.sValue, list_.lines.Key(lLine), list_.lines.Value(lLine)});
  }

  void AddMissingEnd(const ListBlock& block) {
    list_.faults.push_back(
        {Rule::MissingEnd, Severity::Warning, block.start,
         std::string("The block ") + NameOf(block.kind) +
             " that begins here has no END. The launcher takes the end of the file for it.",
         "Add a line \"END\" behind the block."});
  }

  static bool Accepts(BlockKind kind, const std::string& sType) {
    return (kind == BlockKind::SetupList && sType == Product) ||
           (kind == BlockKind::Application && sType == Prerequisite);
  }

  // A block within a block: the right one, or one that is reported and then
  // read as what it was most probably meant to be.
  void ReadInner(ListBlock& block) {
    const std::string sType = Next().sWord;
    const std::string sMeant = MeantType(sType, ExpectedIn(block.kind));
    if (!Accepts(block.kind, sType)) {
      const bool bEndMissing = ClosesBlock(block.kind, MeantType(sType, "")) && !IsNested();
      ReportInner(block, bEndMissing);
      if (bEndMissing) {
        bEndImplied_ = true;
        return;
      }
    }
    ListBlock inner;
    inner.kind = InnerKind(block.kind, sMeant);
    inner.start = Next().place;
    lDepth_ += 1;
    ++nNext_;
    ReadBlock(inner);
    lDepth_ -= 1;
    block.blocks.push_back(std::move(inner));
  }

  // Whether a block of that type shows that a block of that kind has ended.
  static bool ClosesBlock(BlockKind kind, const std::string& sType) {
    return sType == Product ? kind != BlockKind::SetupList
                            : sType == Prerequisite && kind == BlockKind::Dependency;
  }

  static BlockKind InnerKind(BlockKind outer, const std::string& sMeant) {
    if (sMeant == Product) return BlockKind::Application;
    if (sMeant == Prerequisite) return BlockKind::Dependency;
    return outer == BlockKind::SetupList ? BlockKind::Application : BlockKind::Dependency;
  }

  // Whether the block that starts here is closed within the block around it, as
  // the ENDs up to the next product show.
  bool IsNested() const {
    std::int32_t lOpen = lDepth_ + 1;
    for (std::size_t n = nNext_ + 1; n < statements_.size(); ++n) {
      const Statement& statement = statements_[n];
      if (statement.kind == Statement::Kind::BlockStart) {
        if (MeantType(statement.sWord, "") == Product) return lOpen <= 1;
        ++lOpen;
      } else if (statement.kind == Statement::Kind::BlockEnd) {
        --lOpen;
      }
    }
    return lOpen <= 0;
  }

  void ReportInner(const ListBlock& block, bool bEndMissing) {
    if (std::exchange(nReported_, nNext_) == nNext_) return;  // in the block that it ended
    const Statement& statement = Next();
    const std::int32_t lLine = statement.place.lLine;
    const std::string sMessage =
        block.kind == BlockKind::Dependency
            ? FormatResourceString(TextNumber::BlockInDependency, lLine, statement.sWord)
            : FormatResourceString(TextNumber::WrongBlock, "BLOCK", lLine, ExpectedIn(block.kind),
                                   statement.sWord);
    std::string sHint;
    if (bEndMissing)
      sHint = std::string("The block ") + NameOf(block.kind) + " that begins in line " +
              std::to_string(block.start.lLine) + " is still open here: its END is missing.";
    AddFault(Rule::WrongBlock, list_.lines.BlockType(lLine), sMessage, sHint);
  }

  // Of lines that are no statements, those behind the END of the outer block.
  void HintAtEnd() {
    for (Finding& fault : list_.faults)
      if (fault.rule == Rule::NotUnderstood && fault.place.lLine > lEnd_)
        fault.sHint += std::string(fault.sHint.empty() ? "" : " ") +
                       "It stands behind the END of the list in line " + std::to_string(lEnd_) +
                       ", where only empty lines and comments may stand.";
  }

  // What stands behind the END of the outer block.
  void ReadAfterEnd() {
    if (!bAfterEndReported_) {
      const std::int32_t lLine = Next().place.lLine;
      AddFault(Rule::AfterEnd, Next().place, FormatResourceString(TextNumber::AfterTheEnd, lLine),
               "The list ends with the END in line " + std::to_string(lEnd_) +
                   ": there may be one END too many before that line.");
      bAfterEndReported_ = true;
    }
    while (!AtEnd() && !NextIsBlock()) ++nNext_;
    if (AtEnd()) return;
    if (MeantType(Next().sWord, "") == Outer) {
      ListBlock second;
      second.start = Next().place;
      ++nNext_;
      ReadBlock(second);
    } else {
      ReadBlock(list_.outer);
    }
  }

  std::vector<Statement> statements_;
  CheckedList& list_;
  std::size_t nNext_ = 0;
  std::int32_t lDepth_ = 1;    // blocks that are open
  std::int32_t lEnd_ = 0;      // the line of the last END
  std::size_t nReported_ = 0;  // the inner block that was reported last
  bool bOuterStarted_ = false;
  bool bEndImplied_ = false;
  bool bAfterEndReported_ = false;
};

std::string ReadFileBytes(const std::string& sPath) {
  const std::unique_ptr<InputFile> file = TheSystem().OpenInput(sPath);
  std::optional<std::string> sBytes = ReadWholeFile(*file);
  if (!sBytes) throw PlatformError("read the setup list", sPath, "it has more than 64 MB");
  return std::move(*sBytes);
}

}  // namespace

CheckedList ReadCheckedList(const std::string& sPath) {
  const std::string sBytes = ReadFileBytes(sPath);
  CheckedList list;
  list.lines = SourceLines(sBytes);
  if (IsUtf16(sBytes)) {
    list.faults.push_back({Rule::NotAnsi,
                           Severity::Error,
                           {1, 1, 1},
                           "The file is UTF-16, of which the launcher understands no line.",
                           "Save it in the ANSI code page (Windows-1252)."});
    return list;
  }
  std::vector<Statement> statements = ReadStatements(sPath, list.lines, list.faults);
  StructureReader(std::move(statements), list).Read();
  return list;
}

}  // namespace trelin
