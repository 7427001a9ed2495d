#include "check/checked_list.h"

#include <algorithm>

#include "suite/setup_list.h"

namespace trelin {

std::string_view StatementPart::Text() const {
  return pText != nullptr ? std::string_view(pText, static_cast<std::size_t>(lLength))
                          : std::string_view();
}

Place ListStatement::PlaceOf(const StatementPart& part) const {
  return {lLine, part.lColumn, std::max(part.lLength, 1)};
}

const ListStatement* ListBlock::Find(std::string_view sKey) const {
  const auto entry =
      std::find_if(entries.rbegin(), entries.rend(),
                   [&](const ListStatement* pEntry) { return pEntry->Key() == sKey; });
  return entry != entries.rend() ? *entry : nullptr;
}

std::string_view ListBlock::Value(std::string_view sKey) const {
  const ListStatement* pEntry = Find(sKey);
  return pEntry != nullptr ? pEntry->Value() : std::string_view();
}

Place ListBlock::PlaceOf(std::string_view sKey) const {
  const ListStatement* pEntry = Find(sKey);
  return pEntry != nullptr ? pEntry->ValuePlace() : start;
}

const char* NameOf(BlockKind kind) {
  switch (kind) {
    case BlockKind::SetupList:
      return "SETUPLIST";
    case BlockKind::Application:
      return "APPLICATION";
    case BlockKind::Dependency:
      return "DEPENDENCY";
    case BlockKind::Unknown:
      break;
  }
  return "of an unknown type";
}

std::span<const std::string_view> KeysOf(BlockKind kind) {
  switch (kind) {
    case BlockKind::SetupList:
      return SetupList::Keys;
    case BlockKind::Application:
      return MenuItem::Keys;
    case BlockKind::Dependency:
      return Dependency::Keys;
    case BlockKind::Unknown:
      break;
  }
  return {};
}

std::optional<std::size_t> KeyNumber(BlockKind kind, std::string_view sKey) {
  const auto keys = KeysOf(kind);
  const auto key = std::find(keys.begin(), keys.end(), sKey);
  if (key == keys.end()) return std::nullopt;
  return static_cast<std::size_t>(key - keys.begin());
}

std::string CheckedList::LaunchersWords(std::string sMessage) const {
  constexpr std::string_view UsualName = "TRELIN.CFG";
  sMessage.erase(std::min(sMessage.find("\n\n"), sMessage.size()));
  if (const std::size_t nName = sMessage.find(UsualName); nName != std::string::npos)
    sMessage.replace(nName, UsualName.size(), sName);
  return sMessage;
}

std::vector<const ListBlock*> CheckedList::Products() const {
  std::vector<const ListBlock*> products;
  for (const ListBlock& block : blocks)
    if (block.kind == BlockKind::Application) products.push_back(&block);
  return products;
}

Place CheckedList::PlaceInLine(std::int32_t lLine) const {
  constexpr const char* Blanks = " \t";
  const std::string_view sLine = lines.Line(lLine);
  const std::size_t nFirst = std::min(sLine.find_first_not_of(Blanks), sLine.size());
  const std::size_t nEnd = sLine.find_last_not_of(Blanks) + 1;
  return {lLine, static_cast<std::int32_t>(nFirst + 1),
          nEnd > nFirst ? static_cast<std::int32_t>(nEnd - nFirst) : 1};
}

}  // namespace trelin
