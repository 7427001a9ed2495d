#include "shared/registry_node.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "shared/code_page.h"

namespace trelin {

namespace {

// Among so many, comparing finds a key sooner than hashing its name.
constexpr std::size_t FewKeys = 8;

bool FoldedLess(std::string_view sOne, std::string_view sOther) {
  return std::lexicographical_compare(sOne.begin(), sOne.end(), sOther.begin(), sOther.end(),
                                      [](char one, char other) {
                                        return static_cast<unsigned char>(UpperCase1252(one)) <
                                               static_cast<unsigned char>(UpperCase1252(other));
                                      });
}

}  // namespace

// FNV-1a.
std::size_t FoldedHash::operator()(std::string_view sName) const {
  std::uint64_t nHash = 0xCBF29CE484222325U;
  for (const char c : sName)
    nHash = (nHash ^ static_cast<unsigned char>(UpperCase1252(c))) * 0x100000001B3U;
  return static_cast<std::size_t>(nHash);
}

bool FoldedEqual::operator()(std::string_view sOne, std::string_view sOther) const {
  return sOne.size() == sOther.size() &&
         (sOne == sOther ||
          std::equal(sOne.begin(), sOne.end(), sOther.begin(), [](char one, char other) {
            return UpperCase1252(one) == UpperCase1252(other);
          }));
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
  if (sorted_.size() <= FewKeys) {
    const auto key = std::find_if(
        sorted_.begin(), sorted_.end(),
        [sName](const RegistryNode* node) { return FoldedEqual()(node->sName_, sName); });
    return key == sorted_.end() ? nullptr : *key;
  }
  const auto found = keys_.find(sName);
  return found == keys_.end() ? nullptr : found->second.get();
}

RegistryNode& RegistryNode::AddKey(std::string_view sName) {
  const auto [entry, bNew] = keys_.try_emplace(std::string(sName));
  if (bNew) {
    entry->second = std::make_unique<RegistryNode>(entry->first, this);
    sorted_.insert(Place(sName), entry->second.get());
  }
  return *entry->second;
}

void RegistryNode::RemoveKey(std::string_view sName) {
  const auto found = keys_.find(sName);
  if (found == keys_.end()) return;
  sorted_.erase(Place(sName));
  keys_.erase(found);
}

std::vector<RegistryNode*>::iterator RegistryNode::Place(std::string_view sName) {
  return std::lower_bound(
      sorted_.begin(), sorted_.end(), sName,
      [](const RegistryNode* node, std::string_view s) { return FoldedLess(node->sName_, s); });
}

const RegistryValue* RegistryNode::FindValue(std::string_view sName) const {
  const auto found = valueIndex_.find(sName);
  return found == valueIndex_.end() ? nullptr : &values_[*found];
}

void RegistryNode::SetValue(const std::string& sName, std::uint32_t lType, std::string sData) {
  const auto found = valueIndex_.find(std::string_view(sName));
  if (found != valueIndex_.end()) {
    RegistryValue& value = values_[*found];
    value.lType = lType;
    value.sData = std::move(sData);
    return;
  }
  values_.push_back({sName, lType, std::move(sData)});
  try {
    valueIndex_.insert(values_.size() - 1);
  } catch (...) {
    values_.pop_back();
    throw;
  }
}

// The values behind the removed one move up, so all positions are entered anew.
bool RegistryNode::RemoveValue(std::string_view sName) {
  const auto found = valueIndex_.find(sName);
  if (found == valueIndex_.end()) return false;
  const std::size_t nRemoved = *found;
  valueIndex_.clear();
  values_.erase(std::next(values_.begin(), static_cast<std::ptrdiff_t>(nRemoved)));
  for (std::size_t i = 0; i < values_.size(); ++i) valueIndex_.insert(i);
  return true;
}

}  // namespace trelin
