#include "shared/registry_node.h"

#include <algorithm>
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

bool RegistryNode::IsSame(std::string_view sOne, std::string_view sOther) {
  return sOne.size() == sOther.size() &&
         (sOne == sOther || std::equal(sOne.begin(), sOne.end(), sOther.begin(), IsSameLetter));
}

// FNV-1a.
std::size_t RegistryNode::HashOf(std::string_view sName) {
  std::uint64_t nHash = 0xCBF29CE484222325U;
  for (const char c : sName) nHash = (nHash ^ Weight(c)) * 0x100000001B3U;
  return static_cast<std::size_t>(nHash);
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
                         [sName](const OwnedKey& key) { return IsSame(key->sName_, sName); })
          : keys_.find(sName);
  return found == keys_.end() ? nullptr : found->get();
}

RegistryNode& RegistryNode::AddKey(std::string_view sName) {
  const auto place = keys_.lower_bound(sName);
  if (place != keys_.end() && IsSame(NameOf(*place), sName)) return **place;
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
  const auto found = valueTable_.find(sName);
  return found == valueTable_.end() ? nullptr : &**found;
}

void RegistryNode::SetValue(std::string_view sName, std::uint32_t lType, std::string sData) {
  const auto found = valueTable_.find(sName);
  if (found != valueTable_.end()) {
    (*found)->lType = lType;
    (*found)->sData = std::move(sData);
    return;
  }
  const auto added = values_.insert(values_.end(), {std::string(sName), lType, std::move(sData)});
  valuePlaces_.Forget();
  try {
    valueTable_.insert(added);
  } catch (...) {
    values_.erase(added);
    throw;
  }
}

bool RegistryNode::RemoveValue(std::string_view sName) {
  const auto found = valueTable_.find(sName);
  if (found == valueTable_.end()) return false;
  const Values::iterator value = *found;
  valueTable_.erase(found);
  values_.erase(value);
  valuePlaces_.Forget();
  return true;
}

}  // namespace trelin
