#include "check/allowances.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "texts/text.h"

namespace trelin {

namespace {

struct Allowance {
  std::string_view sRule;
  Place place;              // in the comment
  std::int32_t lFirst = 0;  // the lines that it counts for
  std::int32_t lLast = 0;
  bool bUsed = false;
};

// What a comment tells trelin-check; empty for any other line.
std::string_view InstructionIn(std::string_view sLine) {
  constexpr std::string_view Introduction = "trelin-check:";
  const std::size_t nFirst = sLine.find_first_not_of(" \t");
  if (nFirst == std::string_view::npos || sLine[nFirst] != ';') return {};
  const std::string_view sComment = TrimSpaces(sLine.substr(nFirst + 1));
  return sComment.starts_with(Introduction) ? sComment.substr(Introduction.size())
                                            : std::string_view();
}

class AllowanceReader {
 public:
  explicit AllowanceReader(const CheckedList& list) : list_(list) {}

  std::vector<Allowance> Read() {
    for (lLine_ = 1; lLine_ <= list_.lines.Count(); ++lLine_)
      if (const std::string_view sInstruction = InstructionIn(list_.lines.Line(lLine_));
          !sInstruction.empty())
        ReadWords(sInstruction);
    return std::move(allowances_);
  }

 private:
  // The first word is "allow", the others are rules.
  void ReadWords(std::string_view sWords) {
    constexpr const char* Separators = " \t,";
    bool bAllows = false;
    while (true) {
      sWords.remove_prefix(std::min(sWords.find_first_not_of(Separators), sWords.size()));
      if (sWords.empty()) return;
      const std::string_view sWord = sWords.substr(0, sWords.find_first_of(Separators));
      if (bAllows || sWord != "allow") Add(sWord);
      bAllows = true;
      sWords.remove_prefix(sWord.size());
    }
  }

  void Add(std::string_view sRule) {
    const std::string_view sLine = list_.lines.Line(lLine_);
    Allowance allowance;
    allowance.sRule = sRule;
    allowance.place = {lLine_, static_cast<std::int32_t>(sRule.data() - sLine.data()) + 1,
                       static_cast<std::int32_t>(sRule.size())};
    SetExtent(allowance);
    allowances_.push_back(allowance);
  }

  // The statement that follows the comment and, if it starts a block, the block.
  void SetExtent(Allowance& allowance) const {
    const auto next = std::upper_bound(
        list_.statements.begin(), list_.statements.end(), lLine_,
        [](std::int32_t lLine, const ListStatement& s) { return lLine < s.lLine; });
    if (next == list_.statements.end()) return;
    allowance.lFirst = allowance.lLast = next->lLine;
    const auto block = std::lower_bound(
        list_.blocks.begin(), list_.blocks.end(), allowance.lFirst,
        [](const ListBlock& b, std::int32_t lLine) { return b.start.lLine < lLine; });
    if (block != list_.blocks.end() && block->start.lLine == allowance.lFirst)
      allowance.lLast = block->lLastLine;
  }

  const CheckedList& list_;
  std::int32_t lLine_ = 0;
  std::vector<Allowance> allowances_;
};

// Goes through findings and allowances in the order of their lines. As blocks do not
// overlap, the allowance of a rule that began last is the one that counts.
class Sweep {
 public:
  explicit Sweep(std::vector<Allowance>& allowances) : allowances_(allowances) {}

  bool Allows(const Finding& finding) {
    const std::int32_t lLine = finding.place.lLine;
    for (; nNext_ < allowances_.size() && allowances_[nNext_].lFirst <= lLine; ++nNext_)
      begun_[allowances_[nNext_].sRule].push_back(&allowances_[nNext_]);
    auto& begun = begun_[finding.pRule->pName];
    while (!begun.empty() && begun.back()->lLast < lLine) begun.pop_back();
    if (begun.empty()) return false;
    begun.back()->bUsed = true;
    return true;
  }

 private:
  std::vector<Allowance>& allowances_;
  std::size_t nNext_ = 0;
  std::unordered_map<std::string_view, std::vector<Allowance*>> begun_;
};

}  // namespace

void ApplyAllowances(const CheckedList& list, Findings& findings) {
  std::vector<Allowance> allowances = AllowanceReader(list).Read();
  Sweep sweep(allowances);
  std::erase_if(findings, [&sweep](const Finding& finding) { return sweep.Allows(finding); });
  for (const Allowance& allowance : allowances)
    if (!allowance.bUsed)
      findings.push_back(
          {&rule::IdleAllowance, Severity::Warning, allowance.place,
           "Nothing is found below that \"" + std::string(allowance.sRule) + "\" could allow.",
           "Remove it. What can be allowed are names of rules, as in \"; "
           "trelin-check: allow no-installer\" above a block or an entry."});
}

}  // namespace trelin
