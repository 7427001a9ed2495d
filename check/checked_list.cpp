#include "check/checked_list.h"

#include <algorithm>

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

const std::vector<const char*>& KeysOf(BlockKind kind) {
  static const std::vector<const char*> ofSetupList = {"TITLE"};
  static const std::vector<const char*> ofApplication = {
      "PRODUCT", "PRODUCTCODE",   "REVISION",    "DESCRIPTION",
      "IMAGE",   "UNINSTALLNAME", "INSTALLFILE", "READMEFILE"};
  static const std::vector<const char*> ofDependency = {"PRODUCTCODE", "REVISION", "TITLE"};
  switch (kind) {
    case BlockKind::SetupList:
      return ofSetupList;
    case BlockKind::Application:
      return ofApplication;
    case BlockKind::Dependency:
      break;
  }
  return ofDependency;
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
