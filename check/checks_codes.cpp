// Checks of how products and prerequisites stand to each other.

#include <algorithm>
#include <array>
#include <compare>
#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "check/checks.h"
#include "check/nearest.h"
#include "check/revision_order.h"
#include "seam/registry.h"

namespace trelin {

namespace {

std::string Quoted(std::string_view sText) { return '"' + std::string(sText) + '"'; }

std::string InLine(const Place& place) { return "line " + std::to_string(place.lLine); }

// Its title and where it stands.
std::string Naming(const ListBlock& product) {
  const std::string_view sTitle = product.Value("PRODUCT");
  const std::string sLine = InLine(product.start);
  return sTitle.empty() ? "the product in " + sLine : Quoted(sTitle) + " (" + sLine + ")";
}

using Blocks = std::vector<const ListBlock*>;

// The numbers, from 0, of the products by their code; of products with the
// same one the first.
std::unordered_map<std::string_view, std::size_t> ByCode(const Blocks& products) {
  std::unordered_map<std::string_view, std::size_t> numbers;
  numbers.reserve(products.size());
  for (std::size_t n = 0; n < products.size(); ++n)
    if (!products[n]->sCode.empty()) numbers.emplace(products[n]->sCode, n);
  return numbers;
}

bool HasLowerCode(const ListBlock* pOne, const ListBlock* pOther) {
  return pOne->sCode < pOther->sCode;
}

// The products and prerequisites that have a code.
Blocks BlocksWithCode(const CheckedList& list) {
  Blocks blocks;
  for (const ListBlock& block : list.blocks)
    if (block.kind != BlockKind::SetupList && !block.sCode.empty()) blocks.push_back(&block);
  return blocks;
}

// Of blocks of one code the first stays the first.
void SortByCode(Blocks& blocks) { std::stable_sort(blocks.begin(), blocks.end(), HasLowerCode); }

// Calls it for each prerequisite that has a code, with the product that offers
// it or a null pointer.
template <class Use>
void ForEachPrerequisite(const Suite& suite, Use use) {
  const Blocks products = suite.list.Products();
  const auto numbers = ByCode(products);
  for (const ListBlock& block : suite.list.blocks) {
    if (block.kind != BlockKind::Dependency || block.sCode.empty()) continue;
    const auto number = numbers.find(block.sCode);
    use(block, number != numbers.end() ? products[number->second] : nullptr);
  }
}

// A code of the list that differs from sCode in a letter or two.
std::string SimilarCode(const Blocks& products, const std::string& sCode) {
  constexpr std::size_t FewLetters = 2;
  constexpr std::size_t MostProducts = 1000;  // the time grows with each prerequisite
  std::string sSimilar;
  std::size_t nNearest = std::min(FewLetters + 1, sCode.size());
  if (products.size() > MostProducts) return sSimilar;
  for (const ListBlock* pProduct : products) {
    const std::string& sKnown = pProduct->sCode;
    if (sKnown.empty() || nNearest == 0) continue;
    const std::size_t nDistance = EditDistance(sCode, sKnown, nNearest - 1);
    if (nDistance >= nNearest) continue;
    nNearest = nDistance;
    sSimilar = sKnown;
  }
  return sSimilar;
}

constexpr Rule RepeatedCode = {
    "repeated-code", "Two products have the same product code.",
    "The code names the installation record, so both products show what is installed of either."};

void CheckRepeatedCodes(const Suite& suite, Report& report) {
  const Blocks products = suite.list.Products();
  const auto numbers = ByCode(products);
  for (std::size_t n = 0; n < products.size(); ++n) {
    const std::string& sCode = products[n]->sCode;
    if (sCode.empty() || numbers.at(sCode) == n) continue;
    report.Error(products[n]->PlaceOf("PRODUCTCODE"),
                 "The product code " + Quoted(products[n]->Value("PRODUCTCODE")) + " is that of " +
                     Naming(*products[numbers.at(sCode)]) +
                     ", too: both show what is installed of either.",
                 "Give each product a code of its own.");
  }
}

constexpr Rule CodeOfCheckFile = {
    "code-of-check-file", "A product code is another one followed by CheckFile.",
    "The value of that name is where the path of the other product's check file is recorded, so "
    "that each would be taken for the other's."};

void CheckCodesOfCheckFiles(const Suite& suite, Report& report) {
  constexpr std::string_view End = "CHECKFILE";
  const auto isOfCheckFile = [End](const ListBlock* pBlock) {
    return pBlock->sCode.ends_with(End);
  };
  Blocks blocks = BlocksWithCode(suite.list);
  if (std::none_of(blocks.begin(), blocks.end(), isOfCheckFile)) return;  // as in most lists
  SortByCode(blocks);
  std::string_view sLast;
  for (const ListBlock* pBlock : blocks) {
    const bool bFirst = std::exchange(sLast, pBlock->sCode) != pBlock->sCode;
    if (!bFirst || !isOfCheckFile(pBlock)) continue;
    const auto sWanted =
        std::string_view(pBlock->sCode).substr(0, pBlock->sCode.size() - End.size());
    const ListBlock& other = **std::lower_bound(
        blocks.begin(), blocks.end(), sWanted,
        [](const ListBlock* pOther, std::string_view sCode) { return pOther->sCode < sCode; });
    if (other.sCode != sWanted) continue;
    report.Error(pBlock->PlaceOf("PRODUCTCODE"),
                 "The product code " + Quoted(pBlock->Value("PRODUCTCODE")) + " is " +
                     Quoted(other.Value("PRODUCTCODE")) + " (" +
                     InLine(other.PlaceOf("PRODUCTCODE")) +
                     ") followed by CheckFile, which is where the path of that product's check "
                     "file is recorded.",
                 "Give the product a code of its own.");
  }
}

constexpr Rule RecordTooLong = {
    "record-too-long", "A product code or revision is longer than 255 characters.",
    "The launcher reads 255 characters of a record, so that none ever matches."};

void CheckRecordLengths(const Suite& suite, Report& report) {
  for (const ListBlock& block : suite.list.blocks) {
    if (block.kind == BlockKind::SetupList) continue;
    for (const char* pKey : {"PRODUCTCODE", "REVISION"}) {
      const std::size_t nLength = block.Value(pKey).size();
      if (nLength > RegistryBufferBytes)
        report.Error(block.PlaceOf(pKey),
                     "The value has " + std::to_string(nLength) +
                         " characters. No installation record holds more than 255.",
                     "Shorten it.");
    }
  }
}

constexpr Rule RepeatedPrerequisite = {
    "repeated-prerequisite", "A product names the same prerequisite twice.",
    "Both must be met; often the second was meant to be another one."};

void CheckRepeatedPrerequisites(const Suite& suite, Report& report) {
  std::map<std::pair<std::size_t, std::string_view>, Place> first;  // by product and code
  for (const ListBlock& block : suite.list.blocks) {
    if (block.kind != BlockKind::Dependency || block.sCode.empty()) continue;
    const Place place = block.PlaceOf("PRODUCTCODE");
    const auto [found, bNew] = first.try_emplace({block.nAround, block.sCode}, place);
    if (!bNew)
      report.Warn(place,
                  "The product names the prerequisite " + Quoted(block.Value("PRODUCTCODE")) +
                      " in " + InLine(found->second) + ", too.",
                  "Keep the one that asks for the higher revision.");
  }
}

constexpr Rule OtherTitle = {
    "other-title", "A prerequisite has another title than the product that offers it.",
    "The message that it is missing names something that the user does not find in the menu."};

void CheckTitlesOfPrerequisites(const Suite& suite, Report& report) {
  ForEachPrerequisite(suite, [&](const ListBlock& prerequisite, const ListBlock* pProduct) {
    const std::string_view sTitle = prerequisite.Value("TITLE");
    if (pProduct == nullptr || sTitle.empty() || pProduct->Value("PRODUCT").empty()) return;
    if (sTitle != pProduct->Value("PRODUCT"))
      report.Warn(prerequisite.PlaceOf("TITLE"),
                  "The prerequisite is called " + Quoted(sTitle) +
                      ", but the product that offers it is " + Naming(*pProduct) + ".",
                  "Give both the same title.");
  });
}

constexpr Rule NotOffered = {"not-offered",
                             "No product of the list offers the code of a prerequisite.",
                             "The user who lacks it cannot install it from this menu."};

void CheckOffered(const Suite& suite, Report& report) {
  const Blocks products = suite.list.Products();
  ForEachPrerequisite(suite, [&](const ListBlock& prerequisite, const ListBlock* pProduct) {
    if (pProduct != nullptr) return;
    const std::string sSimilar = SimilarCode(products, prerequisite.sCode);
    report.Warn(
        prerequisite.PlaceOf("PRODUCTCODE"),
        "No product of this list has the code " + Quoted(prerequisite.Value("PRODUCTCODE")) +
            ": the user cannot install this prerequisite from the menu.",
        sSimilar.empty() ? "" : "The code that is nearest to it is " + Quoted(sSimilar) + ".");
  });
}

constexpr Rule RevisionNotOffered = {
    "revision-not-offered", "A prerequisite asks for a higher revision than the list offers.",
    "What the list offers never meets the prerequisite, so that the product cannot be installed."};

// Two revisions that compare the wrong way round have a rule of their own.
void CheckRevisionsOffered(const Suite& suite, Report& report) {
  ForEachPrerequisite(suite, [&](const ListBlock& prerequisite, const ListBlock* pProduct) {
    if (pProduct == nullptr || pProduct->Value("REVISION").empty()) return;
    const std::string_view sOffered = pProduct->Value("REVISION");
    const std::string_view sRequired = prerequisite.Value("REVISION");
    if (sRequired <= sOffered || std::is_lt(CompareByNumbers(sRequired, sOffered))) return;
    report.Error(prerequisite.PlaceOf("REVISION"),
                 "Revision " + Quoted(sRequired) + " is required, but " + Naming(*pProduct) +
                     " offers " + Quoted(sOffered) + ", which is lower.",
                 "Require " + Quoted(sOffered) + " or offer the higher one.");
  });
}

// Looks for circles among the products along their prerequisites, depth first;
// without recursion, as a chain may be as long as the list.
class CircleSearch {
 public:
  CircleSearch(const Suite& suite, Report& report)
      : products_(suite.list.Products()),
        numbers_(ByCode(products_)),
        needs_(NeedsOf(suite.list)),
        states_(products_.size(), State::New),
        report_(report) {}

  void Run() {
    for (std::size_t n = 0; n < products_.size(); ++n)
      if (states_[n] == State::New) RunFrom(n);
  }

 private:
  enum class State { New, OnPath, Done };

  struct Need {
    std::size_t nProduct;
    const ListBlock* pPrerequisite;
  };

  struct Step {
    std::size_t nProduct;
    std::size_t nNextNeed;
  };

  static bool IsOfEarlierProduct(const Need& one, const Need& other) {
    return one.nProduct < other.nProduct;
  }

  static std::vector<Need> NeedsOf(const CheckedList& list) {
    std::vector<Need> needs;
    std::vector<std::size_t> numbers(list.blocks.size());  // of the product, by its block's
    std::size_t nProducts = 0;
    for (std::size_t n = 0; n < list.blocks.size(); ++n) {
      const ListBlock& block = list.blocks[n];
      const bool bInProduct = list.blocks[block.nAround].kind == BlockKind::Application;
      if (block.kind == BlockKind::Application)
        numbers[n] = nProducts++;
      else if (block.kind == BlockKind::Dependency && bInProduct)
        needs.push_back({numbers[block.nAround], &block});
    }
    std::stable_sort(needs.begin(), needs.end(), IsOfEarlierProduct);
    return needs;
  }

  void RunFrom(std::size_t nProduct) {
    Enter(nProduct);
    while (!path_.empty()) {
      Step& step = path_.back();
      if (step.nNextNeed == needs_.size() || needs_[step.nNextNeed].nProduct != step.nProduct) {
        states_[step.nProduct] = State::Done;
        path_.pop_back();
        continue;
      }
      Follow(*needs_[step.nNextNeed++].pPrerequisite);
    }
  }

  void Enter(std::size_t nProduct) {
    states_[nProduct] = State::OnPath;
    const auto first =
        std::lower_bound(needs_.begin(), needs_.end(), Need{nProduct, nullptr}, IsOfEarlierProduct);
    path_.push_back({nProduct, static_cast<std::size_t>(first - needs_.begin())});
  }

  void Follow(const ListBlock& block) {
    const auto number = numbers_.find(block.sCode);
    if (number == numbers_.end()) return;
    if (states_[number->second] == State::New)
      Enter(number->second);
    else if (states_[number->second] == State::OnPath)
      ReportCircle(number->second, block);
  }

  void ReportCircle(std::size_t nFirst, const ListBlock& prerequisite) {
    const auto first = std::find_if(path_.begin(), path_.end(),
                                    [nFirst](const Step& step) { return step.nProduct == nFirst; });
    std::string sCircle;
    for (auto step = first; step != path_.end(); ++step)
      sCircle +=
          Naming(*products_[step->nProduct]) + (step == first ? " needs " : ", which needs ");
    report_.Error(prerequisite.PlaceOf("PRODUCTCODE"),
                  (first + 1 == path_.end() ? "A product needs itself: "
                                            : "Products wait for each other in a circle: ") +
                      sCircle + Naming(*products_[nFirst]) + ".",
                  "None of them can be installed. Remove one of the prerequisites.");
  }

  Blocks products_;
  std::unordered_map<std::string_view, std::size_t> numbers_;
  std::vector<Need> needs_;  // by their products
  std::vector<State> states_;
  std::vector<Step> path_;
  Report& report_;
};

void ReportOrder(const std::string& sCode, const std::pair<const std::string_view, Place>& lower,
                 const std::pair<const std::string_view, Place>& higher, Report& report) {
  const auto [sLower, sHigher] = SortableSpelling(lower.first, higher.first);
  const bool bHelps = sHigher < sLower;
  report.Error(
      std::max(lower.second, higher.second,
               [](const Place& one, const Place& other) { return one.lLine < other.lLine; }),
      "Of " + Quoted(sCode) + " the list gives the revisions " + Quoted(lower.first) + " (" +
          InLine(lower.second) + ") and " + Quoted(higher.first) + " (" + InLine(higher.second) +
          "). The launcher compares them as texts, and " + Quoted(lower.first) +
          " is the lower one.",
      bHelps ? "Write " + Quoted(sHigher) + " and " + Quoted(sLower) +
                   ", also in the installers: these sort right."
             : "Give all revisions the same number of digits.");
}

constexpr Rule Circle = {"circle", "Products wait for each other in a circle.",
                         "Each waits for another, so that none of them can be installed."};

void CheckCircles(const Suite& suite, Report& report) { CircleSearch(suite, report).Run(); }

constexpr Rule RevisionOrder = {
    "revision-order", "Two revisions sort the wrong way round as texts.",
    "The launcher compares revisions as texts, character by character: 2.10 is lower than 2.9. A "
    "newer product would show as an older one."};

// Of revisions in the order of their texts, neighbours show whether all are in
// the order of their numbers.
void CheckOrderOf(std::span<const ListBlock* const> ofOneCode, Report& report) {
  std::map<std::string_view, Place> revisions;
  for (const ListBlock* pBlock : ofOneCode)
    if (const std::string_view sRevision = pBlock->Value("REVISION"); !sRevision.empty())
      revisions.emplace(sRevision, pBlock->PlaceOf("REVISION"));
  for (auto higher = revisions.begin(); higher != revisions.end(); ++higher) {
    if (higher == revisions.begin()) continue;
    const auto lower = std::prev(higher);
    if (std::is_gt(CompareByNumbers(lower->first, higher->first)))
      ReportOrder(ofOneCode.front()->sCode, *lower, *higher, report);
  }
}

void CheckRevisionOrder(const Suite& suite, Report& report) {
  Blocks blocks = BlocksWithCode(suite.list);
  SortByCode(blocks);
  for (auto first = blocks.begin(); first != blocks.end();) {
    const auto end = std::upper_bound(first, blocks.end(), *first, HasLowerCode);
    CheckOrderOf({first, end}, report);
    first = end;
  }
}

}  // namespace

std::span<const Check> CodeChecks() {
  static constexpr std::array Table = {
      Check{&RepeatedCode, CheckRepeatedCodes},
      Check{&CodeOfCheckFile, CheckCodesOfCheckFiles},
      Check{&RecordTooLong, CheckRecordLengths},
      Check{&RepeatedPrerequisite, CheckRepeatedPrerequisites},
      Check{&OtherTitle, CheckTitlesOfPrerequisites},
      Check{&NotOffered, CheckOffered},
      Check{&RevisionNotOffered, CheckRevisionsOffered},
      Check{&Circle, CheckCircles},
      Check{&RevisionOrder, CheckRevisionOrder},
  };
  return Table;
}

}  // namespace trelin
