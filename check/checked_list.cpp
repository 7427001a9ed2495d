#include "check/checked_list.h"

#include <algorithm>

#include "suite/setup_list.h"

namespace trelin {

namespace {

void ForEachBlockIn(const ListBlock& block, const std::function<void(const ListBlock&)>& use) {
  use(block);
  for (const ListBlock& inner : block.blocks) ForEachBlockIn(inner, use);
}

}  // namespace

const ListEntry* ListBlock::Find(std::string_view sKey) const {
  const auto entry = std::find_if(entries.rbegin(), entries.rend(),
                                  [&](const ListEntry& e) { return e.sKey == sKey; });
  return entry != entries.rend() ? &*entry : nullptr;
}

std::string_view ListBlock::Value(std::string_view sKey) const {
  const ListEntry* pEntry = Find(sKey);
  return pEntry != nullptr ? std::string_view(pEntry->sValue) : std::string_view();
}

Place ListBlock::PlaceOf(std::string_view sKey) const {
  const ListEntry* pEntry = Find(sKey);
  return pEntry != nullptr ? pEntry->value : start;
}

const char* NameOf(BlockKind kind) {
  switch (kind) {
    case BlockKind::SetupList:
      return "SETUPLIST";
    case BlockKind::Application:
      return "APPLICATION";
    case BlockKind::Dependency:
      break;
  }
  return "DEPENDENCY";
}

namespace {

template <class Keys>
std::vector<const char*> NamesOf(const Keys& keys) {
  std::vector<const char*> names(keys.size());
  std::transform(keys.begin(), keys.end(), names.begin(), [](const auto& key) { return key.pKey; });
  return names;
}

}  // namespace

std::vector<const char*> KeysOf(BlockKind kind) {
  switch (kind) {
    case BlockKind::SetupList:
      return NamesOf(SetupList::Keys);
    case BlockKind::Application:
      return NamesOf(MenuItem::Keys);
    case BlockKind::Dependency:
      break;
  }
  return NamesOf(Dependency::Keys);
}

std::vector<const ListBlock*> CheckedList::Products() const {
  std::vector<const ListBlock*> products;
  ForEachBlock([&products](const ListBlock& block) {
    if (block.kind == BlockKind::Application) products.push_back(&block);
  });
  return products;
}

void CheckedList::ForEachBlock(const std::function<void(const ListBlock&)>& use) const {
  ForEachBlockIn(outer, use);
}

}  // namespace trelin
