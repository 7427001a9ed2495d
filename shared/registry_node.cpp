#include "shared/registry_node.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "shared/code_page.h"

namespace trelin {

namespace {

// Among so many, a key is found sooner by looking at each.
constexpr std::size_t FewKeys = 8;

bool IsSameLetter(char one, char other) {
  return one == other || UpperCase1252(one) == UpperCase1252(other);
}

unsigned char Weight(char c) { return static_cast<unsigned char>(UpperCase1252(c)); }

}  // namespace

bool RegistryNode::IsBefore(std::string_view sOne, std::string_view sOther) {
  const auto [one, other] =
      std::mismatch(sOne.begin(), sOne.end(), sOther.begin(), sOther.end(), IsSameLetter);
  if (one == sOne.end() || other == sOther.end()) return other != sOther.end();
  return Weight(*one) < Weight(*other);
}

std::unique_ptr<RegistryNode> RegistryNode::NewTree() {
  auto root = std::make_unique<RegistryNode>();
  for (const char* sHive : {"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE",
                            "HKEY_USERS", "HKEY_CURRENT_CONFIG"})
    root->AddKey(sHive);
  return root;
}

std::string RegistryNode::Path() const {
  if (parent_ == nullptr || parent_->parent_ == nullptr) return sName_;
  return parent_->Path() + '\\' + sName_;
}

std::size_t RegistryNode::Depth() const {
  std::size_t nDepth = 0;
  for (const RegistryNode* node = parent_; node != nullptr; node = node->parent_) ++nDepth;
  return nDepth;
}

RegistryNode* RegistryNode::FindKey(std::string_view sName) const {
  const auto found =
      keys_.size() <= FewKeys
          ? std::find_if(keys_.begin(), keys_.end(),
                         [sName](const OwnedKey& key) { return IsSameName(key->sName_, sName); })
          : keys_.find(sName);
  return found == keys_.end() ? nullptr : found->get();
}

RegistryNode& RegistryNode::AddKey(std::string_view sName) {
  const auto place = keys_.lower_bound(sName);
  if (place != keys_.end() && IsSameName(NameOf(*place), sName)) return **place;
  const auto added = keys_.emplace_hint(place, std::make_unique<RegistryNode>(sName, this));
  keyPlaces_.Forget();
  return **added;
}

void RegistryNode::RemoveKey(std::string_view sName) {
  const auto found = keys_.find(sName);
  if (found == keys_.end()) return;
  keys_.erase(found);
  keyPlaces_.Forget();
}

const RegistryValue* RegistryNode::FindValue(std::string_view sName) const {
  const auto* found = valueTable_.Find(sName, ValueTable::HashOf(sName));
  return found == nullptr ? nullptr : &**found;
}

void RegistryNode::SetValue(std::string sName, std::uint32_t lType, std::string sData) {
  const std::size_t nHash = ValueTable::HashOf(sName);
  if (const auto* found = valueTable_.Find(sName, nHash)) {
    (*found)->lType = lType;
    (*found)->sData = std::move(sData);
    return;
  }
  valueTable_.MakeRoom();
  RegistryValue& value = values_.emplace_back();
  value.sName = std::move(sName);
  value.lType = lType;
  value.sData = std::move(sData);
  valueTable_.Add(std::prev(values_.end()), nHash);
  valuePlaces_.Forget();
}

bool RegistryNode::RemoveValue(std::string_view sName) {
  const auto* found = valueTable_.Find(sName, ValueTable::HashOf(sName));
  if (found == nullptr) return false;
  const Values::iterator value = *found;
  valueTable_.Remove(found);
  values_.erase(value);
  valuePlaces_.Forget();
  return true;
}

}  // namespace trelin
