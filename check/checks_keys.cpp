// Checks of the entries of each block by itself.

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "check/checks.h"
#include "check/nearest.h"
#include "texts/messages.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

// What another kind of block calls it, or the key that is nearest by its
// letters.
std::string NearestKey(BlockKind kind, const std::string& sKey) {
  if (kind == BlockKind::Application && (sKey == "TITLE" || sKey == "NAME")) return "PRODUCT";
  if (kind == BlockKind::Dependency && (sKey == "PRODUCT" || sKey == "NAME")) return "TITLE";
  return std::string(NearestWord(sKey, KeysOf(kind)));
}

// Where the key belongs, if it is known at all.
std::string WhereKnown(const std::string& sKey) {
  std::string sBlocks;
  for (const BlockKind kind :
       {BlockKind::SetupList, BlockKind::Application, BlockKind::Dependency}) {
    if (!IsKeyOf(kind, sKey)) continue;
    sBlocks += sBlocks.empty() ? " It is a key of a block " : " or ";
    sBlocks += NameOf(kind);
  }
  return sBlocks.empty() ? sBlocks : sBlocks + ".";
}

std::string UnknownKeyHint(BlockKind kind, const std::string& sKey) {
  if (sKey == "END" || sKey == "BLOCK")
    return "A line that is to count as " + sKey + " has no equals sign right behind the word.";
  return "The known key that is nearest to it is " + NearestKey(kind, sKey) + "." +
         WhereKnown(sKey);
}

// In the outer block the launcher says so itself.
std::string UnknownKeyMessage(const CheckedList& list, BlockKind kind, const std::string& sKey) {
  if (kind == BlockKind::SetupList)
    return list.LaunchersWords(FormatResourceString(
        TextNumber::UnknownKey, LoadResourceString(TextNumber::MenuCaption), sKey));
  return LoadResourceString(TextNumber::MenuCaption) + " does not know the entry \"" + sKey +
         "\" in a block " + NameOf(kind) + ". It beeps and leaves it out.";
}

// Reports each block that use accepts and in which the key is missing or has
// no value.
template <class Use>
void ForEachWithout(const Suite& suite, const char* pKey, Use use) {
  for (const ListBlock& block : suite.list.blocks) {
    const bool bJudged =
        block.kind == BlockKind::Application || block.kind == BlockKind::Dependency;
    if (bJudged && block.Value(pKey).empty()) use(block, block.PlaceOf(pKey));
  }
}

// The only key of the block that it is a slip of the hand away from, if the block
// does without that one.
std::optional<Correction> KeyMeant(BlockKind kind, const ListStatement& entry,
                                   std::set<std::string_view>& known) {
  constexpr std::size_t FewLetters = 2;
  std::string_view sMeant;
  for (const std::string_view sKey : KeysOf(kind)) {
    if (!IsNear(entry.Key(), sKey, FewLetters)) continue;
    if (!sMeant.empty()) return std::nullopt;
    sMeant = sKey;
  }
  if (sMeant.empty() || known.contains(sMeant) || !WhereKnown(std::string(entry.Key())).empty())
    return std::nullopt;
  known.insert(sMeant);  // for the next one
  return Correction{entry.KeyPlace(), std::string(sMeant)};
}

// Those keys of the block's entries that the launcher knows.
std::set<std::string_view> KnownKeys(const ListBlock& block) {
  std::set<std::string_view> known;
  for (const ListStatement* pEntry : block.entries)
    if (IsKeyOf(block.kind, pEntry->Key())) known.insert(pEntry->Key());
  return known;
}

void CheckUnknownKeys(const Suite& suite, Report& report) {
  for (const ListBlock& block : suite.list.blocks) {
    std::optional<std::set<std::string_view>> known;  // most blocks do without it
    for (const ListStatement* pEntry : block.entries) {
      if (block.kind == BlockKind::Unknown || IsKeyOf(block.kind, pEntry->Key())) continue;
      if (!known) known = KnownKeys(block);
      const std::string sKey(pEntry->Key());
      report
          .Error(pEntry->KeyPlace(), UnknownKeyMessage(suite.list, block.kind, sKey),
                 UnknownKeyHint(block.kind, sKey))
          .correction = KeyMeant(block.kind, *pEntry, *known);
    }
  }
}

constexpr Rule RepeatedKey = {
    "repeated-key", "A key is given twice in one block.",
    "The later value counts, and the earlier one is lost without a word."};

void CheckRepeatedKeys(const Suite& suite, Report& report) {
  std::vector<std::int32_t> firstLines;  // by the number of the key
  for (const ListBlock& block : suite.list.blocks) {
    firstLines.assign(KeysOf(block.kind).size(), 0);
    for (const ListStatement* pEntry : block.entries) {
      const auto nKey = KeyNumber(block.kind, pEntry->Key());
      if (!nKey) continue;
      const std::int32_t lFirst = firstLines[*nKey];
      if (lFirst == 0) {
        firstLines[*nKey] = pEntry->lLine;
        continue;
      }
      report.Warn(pEntry->KeyPlace(),
                  std::string(pEntry->Key()) + " is given twice in this block, first in line " +
                      std::to_string(lFirst) + ". The later value counts.",
                  "Remove one of the two lines.");
    }
  }
}

constexpr Rule TooManyProducts = {
    "too-many-products", "The list has more than 32,767 products.",
    "The menu numbers its products with 16 bits and ends with an error."};

void CheckProductCount(const Suite& suite, Report& report) {
  constexpr std::size_t MostProducts = std::numeric_limits<std::int16_t>::max();
  const auto products = suite.list.Products();
  if (products.size() <= MostProducts) return;
  report.Error(products[MostProducts]->start,
               "The setup list names " + std::to_string(products.size()) +
                   " products, but the menu can show 32767 at the most.",
               "Divide the suite into several lists, each in a folder of its own.");
}

constexpr Rule NoTitle = {"no-title", "A product or prerequisite has no title.",
                          "The row, or the message about the prerequisite, names nothing."};

void CheckTitles(const Suite& suite, Report& report) {
  for (const ListBlock& block : suite.list.blocks) {
    if (block.kind == BlockKind::Application && block.Value("PRODUCT").empty())
      report.Error(block.PlaceOf("PRODUCT"), "The product has no title: its row has no name.",
                   "Add an entry \"PRODUCT = ...\".");
    if (block.kind == BlockKind::Dependency && block.Value("TITLE").empty())
      report.Warn(block.PlaceOf("TITLE"),
                  "The prerequisite has no title: the message about it does not name it.",
                  "Add an entry \"TITLE = ...\".");
  }
}

constexpr Rule RepeatedTitle = {
    "repeated-title", "Two products have the same title.",
    "The user cannot tell their rows apart, nor which one a message means."};

void CheckRepeatedTitles(const Suite& suite, Report& report) {
  std::unordered_map<std::string_view, std::int32_t> lines;  // by title
  for (const ListBlock* pProduct : suite.list.Products()) {
    const std::string_view sTitle = pProduct->Value("PRODUCT");
    if (sTitle.empty()) continue;
    const auto [first, bNew] = lines.emplace(sTitle, pProduct->PlaceOf("PRODUCT").lLine);
    if (!bNew)
      report.Warn(pProduct->PlaceOf("PRODUCT"),
                  "The title \"" + std::string(sTitle) + "\" is that of the product in line " +
                      std::to_string(first->second) + ", too.",
                  "Give each product a title of its own.");
  }
}

constexpr Rule NoInstaller = {"no-installer", "A product has no installer.",
                              "Setup of the product only says that there is none."};

void CheckInstallersNamed(const Suite& suite, Report& report) {
  ForEachWithout(suite, "INSTALLFILE", [&](const ListBlock& block, const Place& place) {
    if (block.kind == BlockKind::Application)
      report.Warn(place, "The product has no installer: Setup only says so.",
                  "Add an entry \"INSTALLFILE = ...\" unless it is there to be read only.");
  });
}

constexpr Rule NoCode = {"no-code", "A product or prerequisite has no product code.",
                         "A product without one always shows as not installed; a prerequisite "
                         "without one is never met."};

void CheckCodesNamed(const Suite& suite, Report& report) {
  ForEachWithout(suite, "PRODUCTCODE", [&](const ListBlock& block, const Place& place) {
    const std::string sHint = "Add an entry \"PRODUCTCODE = ...\".";
    if (block.kind == BlockKind::Application)
      report.Warn(place, "The product has no product code: it always shows as not installed.",
                  sHint);
    else
      report.Error(place, "The prerequisite has no product code: it never counts as installed.",
                   sHint);
  });
}

constexpr Rule NoRevision = {
    "no-revision", "A product has no revision.",
    "Whatever is installed of the product counts as newer than what the list offers."};

void CheckRevisionsNamed(const Suite& suite, Report& report) {
  ForEachWithout(suite, "REVISION", [&](const ListBlock& block, const Place& place) {
    if (block.kind != BlockKind::Application) return;
    const std::string sHint = "Add an entry \"REVISION = ...\".";
    if (block.Value("PRODUCTCODE").empty())
      report.Warn(place, "The product has no revision.", sHint);
    else
      report.Error(place,
                   "The product has no revision: whatever is installed counts as a newer one.",
                   sHint);
  });
}

}  // namespace

std::span<const Check> KeyChecks() {
  static constexpr std::array Table = {
      Check{&rule::UnknownKey, CheckUnknownKeys},
      Check{&RepeatedKey, CheckRepeatedKeys},
      Check{&TooManyProducts, CheckProductCount},
      Check{&NoTitle, CheckTitles},
      Check{&RepeatedTitle, CheckRepeatedTitles},
      Check{&NoInstaller, CheckInstallersNamed},
      Check{&NoCode, CheckCodesNamed},
      Check{&NoRevision, CheckRevisionsNamed},
  };
  return Table;
}

}  // namespace trelin
