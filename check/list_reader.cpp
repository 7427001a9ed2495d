#include "check/list_reader.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>

#include "check/encoding.h"
#include "check/nearest.h"
#include "check/statements.h"
#include "texts/messages.h"
#include "texts/string_resources.h"
#include "texts/text.h"

namespace trelin {

namespace {

constexpr const char* Outer = "SETUPLIST";
constexpr const char* Product = "APPLICATION";
constexpr const char* Prerequisite = "DEPENDENCY";

// The block type that a word most probably stands for: one that it differs from
// in a few letters, or else the one that is expected there.
std::string_view MeantType(std::string_view sType, const char* pExpected) {
  constexpr std::size_t FewLetters = 3;
  if (sType == Product || sType == Prerequisite) return sType;  // as most are
  const std::string_view sNearest = NearestWord(sType, {Outer, Product, Prerequisite}, FewLetters);
  return sNearest.empty() ? pExpected : sNearest;
}

const char* ExpectedIn(BlockKind kind) {
  return kind == BlockKind::SetupList ? Product : Prerequisite;
}

bool Accepts(BlockKind kind, std::string_view sType) {
  return (kind == BlockKind::SetupList && sType == Product) ||
         (kind == BlockKind::Application && sType == Prerequisite);
}

// Whether a block of that type shows that a block of that kind has ended.
bool ClosesBlock(BlockKind kind, std::string_view sType) {
  return sType == Product ? kind != BlockKind::SetupList
                          : sType == Prerequisite && kind == BlockKind::Dependency;
}

// Of a type that comes near to no other, the kind that is expected there.
BlockKind InnerKind(BlockKind around, std::string_view sMeant) {
  if (sMeant == Outer) return BlockKind::SetupList;
  if (sMeant == Product) return BlockKind::Application;
  if (sMeant == Prerequisite) return BlockKind::Dependency;
  return around == BlockKind::SetupList ? BlockKind::Application : BlockKind::Dependency;
}

// How many blocks are open at places of a list, if each END closes one.
class Depths {
 public:
  explicit Depths(const std::vector<ListStatement>& statements) : places_(statements.size() + 1) {
    for (std::size_t n = 0; n < statements.size(); ++n)
      places_[n + 1].lDepth = places_[n].lDepth + Change(statements[n].kind);
    std::size_t nNextProduct = statements.size();
    for (std::size_t n = places_.size(); n-- > 0;) {
      if (n < statements.size() && StartsProduct(statements[n])) nNextProduct = n;
      places_[n].lNextProduct = static_cast<std::uint32_t>(nNextProduct);
    }
  }

  // Whether the block that starts at statement nStart is closed within the block
  // around it, as the ENDs up to the next product show.
  bool IsNested(std::size_t nStart, std::size_t nOpenBlocks) const {
    return OpenBehind(nStart, nOpenBlocks) <= 0;
  }

  // Whether the ENDs behind statement nPlace, up to the next product, are more than
  // the nOpenBlocks blocks that are open there.
  bool HasEndTooMany(std::size_t nPlace, std::size_t nOpenBlocks) const {
    return OpenBehind(nPlace, nOpenBlocks) < 0;
  }

 private:
  // How many blocks within the list are open at the next product that starts behind
  // a statement; at the end of the file, where the list itself is closed, how many
  // blocks in all.
  std::int32_t OpenBehind(std::size_t nPlace, std::size_t nOpenBlocks) const {
    const std::size_t nProduct = places_[nPlace + 1].lNextProduct;
    const bool bAtEnd = nProduct + 1 == places_.size();
    return static_cast<std::int32_t>(nOpenBlocks) + places_[nProduct].lDepth -
           places_[nPlace].lDepth - (bAtEnd ? 0 : 1);
  }

  struct PlaceInList {
    std::int32_t lDepth = 0;
    std::uint32_t lNextProduct = 0;  // the number of its statement
  };

  static std::int32_t Change(Statement::Kind kind) {
    if (kind == Statement::Kind::StartBlock) return 1;
    return kind == Statement::Kind::EndBlock ? -1 : 0;
  }

  static bool StartsProduct(const ListStatement& statement) {
    return statement.kind == Statement::Kind::StartBlock &&
           MeantType(statement.Key(), "") == Product;
  }

  std::vector<PlaceInList> places_;  // in front of each statement, and at the end
};

class StructureReader {
 public:
  explicit StructureReader(CheckedList& list)
      : list_(list), nLineFaults_(std::ssize(list.faults)), depths_(list.statements) {}

  void Read() {
    list_.blocks.emplace_back();
    if (!ReadStart()) return;
    if (ReadBlock(0)) HintAtEnd();
    while (!AtEnd()) ReadAfterEnd();
  }

 private:
  struct OpenBlock {
    std::size_t nBlock = 0;
    bool bStrange = false;  // neither its type nor an entry tells what it is
    std::optional<std::size_t> nFault = std::nullopt;  // that reports its type
  };

  bool AtEnd() const { return nNext_ == list_.statements.size(); }
  const ListStatement& Next() const { return list_.statements[nNext_]; }
  bool NextIsBlock() const { return Next().kind == Statement::Kind::StartBlock; }
  std::int32_t NextLine() const { return Next().lLine; }
  Place NextPlace() const { return list_.PlaceInLine(NextLine()); }

  void AddFault(const Rule* pRule, const Place& place, std::string sMessage, std::string sHint) {
    list_.faults.push_back({pRule, Severity::Error, place,
                            list_.LaunchersWords(std::move(sMessage)), std::move(sHint)});
  }

  // Up to the first block's start line, and over it if it is that of the outer
  // block. False when there is no block.
  bool ReadStart() {
    if (AtEnd() || !NextIsBlock()) {
      // A line that is no statement at all is reported as such already.
      const Place place = AtEnd() ? list_.PlaceInLine(list_.lines.Count()) : NextPlace();
      if (!AtEnd() || list_.faults.empty())
        AddFault(&rule::MustBegin, place,
                 FormatResourceString(TextNumber::NoBeginning, place.lLine), "");
      while (!AtEnd() && !NextIsBlock()) ++nNext_;
      if (AtEnd()) return false;
    } else if (Next().Key() != Outer) {
      AddFault(&rule::WrongBlock, Next().KeyPlace(),
               FormatResourceString(TextNumber::WrongBlock, "BLOCK", NextLine(), Outer,
                                    std::string(Next().Key())),
               "");
      if (MeantType(Next().Key(), "") == Outer)
        list_.faults.back().correction = {Next().KeyPlace(), Outer};
    }
    list_.blocks.front().start = NextPlace();
    bOuterStarted_ = MeantType(Next().Key(), Outer) == Outer;
    if (bOuterStarted_) ++nNext_;
    return true;
  }

  // Reads block nBlock and what is in it up to and over its END. False when the
  // file ends before.
  bool ReadBlock(std::size_t nBlock) {
    open_ = {{nBlock}};
    while (!AtEnd() && !open_.empty()) ReadStatement();
    const bool bHasEnd = open_.empty();
    for (; !open_.empty(); Close())
      if (!bAfterEndReported_ && (open_.back().nBlock != 0 || bOuterStarted_))
        AddMissingEnd(Innermost());
    return bHasEnd;
  }

  ListBlock& Innermost() { return list_.blocks[open_.back().nBlock]; }

  // A block of a strange type is what its entries say.
  void Close() {
    ListBlock& block = Innermost();
    block.lLastLine = AtEnd() ? list_.lines.Count() : NextLine();
    if (open_.back().bStrange) block.kind = BlockKind::Unknown;
    if (block.kind == BlockKind::Application) nLastProduct_ = open_.back().nBlock;
    if (const auto nFault = open_.back().nFault) {
      std::string& sHint = list_.faults[*nFault].sHint;
      if (sHint.empty())
        sHint = block.kind == BlockKind::Unknown
                    ? "What is in it is not looked at."
                    : std::string("It is read as a block ") + NameOf(block.kind) + ".";
    }
    open_.pop_back();
  }

  void ReadStatement() {
    if (NextIsBlock()) return ReadBlockStart();
    if (Next().kind == Statement::Kind::EndBlock) {
      lEnd_ = NextLine();
      Close();
    } else {
      ReadEntry();
    }
    ++nNext_;
  }

  void ReadEntry() {
    const std::string_view sKey = Next().Key();
    const bool bOfProduct = Innermost().kind == BlockKind::SetupList && nLastProduct_ > 0 &&
                            !IsKeyOf(BlockKind::SetupList, sKey) &&
                            IsKeyOf(BlockKind::Application, sKey);
    if (bOfProduct && depths_.HasEndTooMany(nNext_, open_.size())) ReopenProduct();
    if (IsKeyOf(Innermost().kind, sKey)) open_.back().bStrange = false;
    Innermost().entries.push_back(&Next());
  }

  // Entries of a product behind its END, which is one too many: often that of a
  // prerequisite, given twice.
  void ReopenProduct() {
    const std::string sMessage =
        FormatResourceString(TextNumber::UnknownKey, LoadResourceString(TextNumber::MenuCaption),
                             std::string(Next().Key()));
    AddFault(&rule::AfterEnd, Next().KeyPlace(), sMessage,
             "The END in line " + std::to_string(lEnd_) +
                 " is one too many: this entry stands behind the product that it belongs to.");
    open_.push_back({nLastProduct_});
  }

  void AddMissingEnd(const ListBlock& block) {
    list_.faults.push_back(
        {&rule::MissingEnd, Severity::Warning, block.start,
         std::string("The block ") + NameOf(block.kind) +
             " that begins here has no END. The launcher takes the end of the file for it.",
         "Add a line \"END\" behind the block.", 0, Correction{PlaceOfEnd(), EndOf(block)}});
  }

  // Behind the last statement that was read.
  Place PlaceOfEnd() const { return {list_.statements[nNext_ - 1].lLine + 1, 1, 0}; }

  // A line that ends the block, as far from the margin as its start.
  std::string EndOf(const ListBlock& block) const {
    const std::string_view sStart = list_.lines.Line(block.start.lLine);
    return std::string(sStart.substr(0, sStart.find_first_not_of(" \t"))) + "END\n";
  }

  // A block within a block: the right one, or one that is reported and then
  // read as what it was most probably meant to be.
  void ReadBlockStart() {
    const ListBlock& around = Innermost();
    const std::string_view sType = Next().Key();
    OpenBlock opened;
    if (!Accepts(around.kind, sType)) {
      const std::string_view sMeant = MeantType(sType, "");
      const bool bEndMissing =
          ClosesBlock(around.kind, sMeant) && !depths_.IsNested(nNext_, open_.size());
      opened.bStrange = sMeant.empty();
      if (!open_.back().bStrange && (bEndMissing || !IsReported(NextLine()))) {
        opened.nFault = list_.faults.size();
        ReportInner(around, bEndMissing);
        if (!bEndMissing && Accepts(around.kind, sMeant))
          list_.faults.back().correction = {Next().KeyPlace(), std::string(sMeant)};
      }
      if (bEndMissing) CloseUpTo(sMeant, opened.nFault);
    }
    StartBlock(opened);
  }

  // A line that is no statement tells what it is read as.
  bool IsReported(std::int32_t lLine) const {
    const auto fault = std::lower_bound(
        list_.faults.begin(), list_.faults.begin() + nLineFaults_, lLine,
        [](const Finding& one, std::int32_t lOther) { return one.place.lLine < lOther; });
    return fault != list_.faults.begin() + nLineFaults_ && fault->place.lLine == lLine;
  }

  // The END that is missing may be that of the innermost block alone; that of
  // the outer one is not.
  void CloseUpTo(std::string_view sMeant, std::optional<std::size_t> nFault) {
    std::string sEnds;
    do {
      sEnds += EndOf(Innermost());
      Close();
    } while (Innermost().kind != BlockKind::SetupList && !Accepts(Innermost().kind, sMeant));
    if (nFault) list_.faults[*nFault].correction = {PlaceOfEnd(), sEnds};
  }

  void StartBlock(OpenBlock opened) {
    const BlockKind around = Innermost().kind;
    ListBlock block;
    block.kind = InnerKind(around, MeantType(Next().Key(), ExpectedIn(around)));
    block.start = NextPlace();
    block.nAround = open_.back().nBlock;
    opened.nBlock = list_.blocks.size();
    open_.push_back(opened);
    list_.blocks.push_back(std::move(block));
    ++nNext_;
  }

  void ReportInner(const ListBlock& around, bool bEndMissing) {
    const std::int32_t lLine = NextLine();
    const std::string sType(Next().Key());
    const std::string sMessage =
        around.kind == BlockKind::Dependency
            ? FormatResourceString(TextNumber::BlockInDependency, lLine, sType)
            : FormatResourceString(TextNumber::WrongBlock, "BLOCK", lLine, ExpectedIn(around.kind),
                                   sType);
    std::string sHint;
    if (bEndMissing)
      sHint = std::string("The block ") + NameOf(around.kind) + " that begins in line " +
              std::to_string(around.start.lLine) + " is still open here: its END is missing.";
    AddFault(&rule::WrongBlock, Next().KeyPlace(), sMessage, sHint);
  }

  // Of lines that are no statements, those behind the END of the outer block.
  void HintAtEnd() {
    for (Finding& fault : list_.faults)
      if (fault.pRule == &rule::NotUnderstood && fault.place.lLine > lEnd_)
        fault.sHint += std::string(fault.sHint.empty() ? "" : " ") +
                       "It stands behind the END of the list in line " + std::to_string(lEnd_) +
                       ", where only empty lines and comments may stand.";
  }

  // What stands behind the END of the outer block: products of the same list, or a
  // second list, of which nothing counts.
  void ReadAfterEnd() {
    if (!bAfterEndReported_) {
      AddFault(&rule::AfterEnd, NextPlace(),
               FormatResourceString(TextNumber::AfterTheEnd, NextLine()),
               "The list ends with the END in line " + std::to_string(lEnd_) +
                   ": there may be one END too many before that line.");
      bAfterEndReported_ = true;
    }
    while (!AtEnd() && !NextIsBlock()) ++nNext_;
    if (AtEnd()) return;
    if (MeantType(Next().Key(), "") == Outer)
      SkipSecondList();
    else
      ReadBlock(0);
  }

  void SkipSecondList() {
    const std::size_t nSecond = list_.blocks.size();
    const std::size_t nLastProduct = nLastProduct_;
    list_.blocks.emplace_back().start = NextPlace();
    ++nNext_;
    ReadBlock(nSecond);
    list_.blocks.erase(list_.blocks.begin() + static_cast<std::ptrdiff_t>(nSecond),
                       list_.blocks.end());
    nLastProduct_ = nLastProduct;
  }

  CheckedList& list_;
  const std::ptrdiff_t nLineFaults_;  // the first ones, of lines that are no statements
  const Depths depths_;
  std::size_t nNext_ = 0;
  std::vector<OpenBlock> open_;   // the outer one first
  std::size_t nLastProduct_ = 0;  // that has been closed; 0 for none
  std::int32_t lEnd_ = 0;         // the line of the last END
  bool bOuterStarted_ = false;
  bool bAfterEndReported_ = false;
};

}  // namespace

CheckedList ReadCheckedList(const std::string& sName, std::unique_ptr<InputFile> file) {
  CheckedList list;
  list.sName = sName;
  list.lines = ReadSourceLines(sName, std::move(file));
  if (IsUtf16(list.lines.Text())) {
    list.blocks.emplace_back();
    list.faults.push_back({&rule::NotAnsi,
                           Severity::Error,
                           {1, 1, 1},
                           "The file is UTF-16, of which the launcher understands no line.",
                           SaveInCodePage()});
    return list;
  }
  ReadStatements(list);
  StructureReader(list).Read();
  for (ListBlock& block : list.blocks) block.sCode = UpperCase(block.Value("PRODUCTCODE"));
  return list;
}

}  // namespace trelin
