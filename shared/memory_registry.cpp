#include "shared/memory_registry.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "shared/at_exit.h"
#include "shared/code_page.h"

namespace trelin {

namespace {

const char* HiveName(RegistryKey hKey) {
  switch (static_cast<std::uint32_t>(hKey)) {
    case 0x80000000U:
      return "HKEY_CLASSES_ROOT";
    case 0x80000001U:
      return "HKEY_CURRENT_USER";
    case 0x80000002U:
      return "HKEY_LOCAL_MACHINE";
    case 0x80000003U:
      return "HKEY_USERS";
    case 0x80000005U:
      return "HKEY_CURRENT_CONFIG";
    default:
      return nullptr;
  }
}

// As the system's functions take a text: up to its first NUL.
std::string_view Name(const std::string& sName) { return sName.c_str(); }

// Takes the next level off the front of a path; false at its end.
bool NextLevel(std::string_view& sRest, std::string_view& sName) {
  while (sRest.starts_with('\\')) sRest.remove_prefix(1);
  sName = sRest.substr(0, sRest.find('\\'));
  sRest.remove_prefix(sName.size());
  return !sName.empty();
}

// The key sPath below a key; nullptr when there is none.
RegistryNode* Descend(RegistryNode* node, std::string_view sPath) {
  for (std::string_view sName; node != nullptr && NextLevel(sPath, sName);)
    node = node->FindKey(sName);
  return node;
}

// Without a buffer only the length is given.
std::int32_t CopyOut(std::string_view sData, char* pBuffer, std::uint32_t& lSize) {
  const bool bFits = pBuffer == nullptr || sData.size() <= lSize;
  if (bFits && pBuffer != nullptr) sData.copy(pBuffer, sData.size());
  lSize = static_cast<std::uint32_t>(sData.size());
  return bFits ? RegistrySuccess : RegistryMoreData;
}

void CopyName(const std::string& sName, char* pName) {
  std::copy_n(sName.c_str(), sName.size() + 1, pName);
}

}  // namespace

std::int32_t MemoryRegistry::Resolve(RegistryKey hKey, Handle& handle) const {
  if (const char* sHive = HiveName(hKey)) {
    handle = {root_->FindKey(sHive), true, hKey};
    return RegistrySuccess;
  }
  const auto found = FindHandle(hKey);
  if (found == handles_.end()) return RegistryInvalidHandle;
  handle = *found;
  return handle.node == nullptr ? RegistryKeyDeleted : RegistrySuccess;
}

std::int32_t MemoryRegistry::ResolveForWriting(RegistryKey hKey, RegistryNode*& node) const {
  Handle handle;
  const std::int32_t lResult = Resolve(hKey, handle);
  if (lResult != RegistrySuccess) return lResult;
  node = handle.node;
  return handle.bWrite ? RegistrySuccess : RegistryAccessDenied;
}

std::int32_t MemoryRegistry::Walk(RegistryKey hParent, const std::string& sPath,
                                  RegistryNode*& node) const {
  Handle handle;
  const std::int32_t lResult = Resolve(hParent, handle);
  if (lResult != RegistrySuccess) return lResult;
  std::string_view sRest = Name(sPath);
  if (hParent == RegistryKey::ClassesRoot && sRest.starts_with('\\')) sRest.remove_prefix(1);
  if (sRest.starts_with('\\')) return RegistryBadPath;
  node = handle.node;
  std::size_t nDepth = node->Depth();
  // Also behind a level that is missing: a path beyond the limits has its own result.
  for (std::string_view sName; NextLevel(sRest, sName); ++nDepth) {
    if (sName.size() > RegistryLongestKeyName || nDepth >= RegistryDeepestLevel)
      return RegistryInvalidParameter;
    if (node != nullptr) node = node->FindKey(sName);
  }
  return node == nullptr ? RegistryNotFound : RegistrySuccess;
}

const RegistryNode* MemoryRegistry::Find(RegistryKey hKey, const std::string& sPath) const {
  RegistryNode* node = nullptr;
  return Walk(hKey, sPath, node) == RegistrySuccess ? node : nullptr;
}

std::int32_t MemoryRegistry::NewHandle(RegistryNode& node, std::uint32_t lAccess,
                                       RegistryKey& hKey) {
  const bool bWrite = (lAccess & RegistryWriteAccess) != 0;
  if (bWrite && Refuses(refusedAccess_, node)) return RegistryAccessDenied;
  do {
    if (lLastHandle_ > std::numeric_limits<std::int32_t>::max() - 4) lLastHandle_ = 0;
    lLastHandle_ += 4;
  } while (FindHandle(static_cast<RegistryKey>(lLastHandle_)) != handles_.end());
  handles_.push_back({&node, bWrite, static_cast<RegistryKey>(lLastHandle_)});
  hKey = handles_.back().hKey;
  return RegistrySuccess;
}

MemoryRegistry::Handles::const_iterator MemoryRegistry::FindHandle(RegistryKey hKey) const {
  return std::find_if(handles_.begin(), handles_.end(),
                      [hKey](const Handle& handle) { return handle.hKey == hKey; });
}

std::int32_t MemoryRegistry::OpenKey(RegistryKey hParent, const std::string& sPath,
                                     std::uint32_t lAccess, RegistryKey& hKey) {
  RegistryNode* node = nullptr;
  const std::int32_t lResult = Walk(hParent, sPath, node);
  if (lResult != RegistrySuccess) return lResult;
  if (HiveName(hParent) != nullptr && Name(sPath).empty()) {
    hKey = hParent;
    return RegistrySuccess;
  }
  return NewHandle(*node, lAccess, hKey);
}

// As on Windows, a handle that was opened for reading serves as well.
std::int32_t MemoryRegistry::CreateKey(RegistryKey hParent, const std::string& sPath,
                                       std::uint32_t lAccess, RegistryKey& hKey) {
  std::int32_t lResult = MemoryRegistry::OpenKey(hParent, sPath, lAccess, hKey);
  if (lResult != RegistryNotFound) return lResult;
  RegistryNode* parent = nullptr;
  if (Walk(hParent, "", parent) != RegistrySuccess) return lResult;
  std::string_view sRest = Name(sPath);
  std::string_view sName;
  RegistryNode* next = nullptr;
  while (NextLevel(sRest, sName) && (next = parent->FindKey(sName)) != nullptr) parent = next;
  if (Refuses(refusedCreation_, *parent)) return RegistryAccessDenied;

  RegistryNode* created = &parent->AddKey(sName);
  const AtExit undo([&, &sFirst = created->Name()] {
    if (lResult != RegistrySuccess) parent->RemoveKey(sFirst);
  });
  while (NextLevel(sRest, sName)) created = &created->AddKey(sName);
  return lResult = NewHandle(*created, lAccess, hKey);
}

std::int32_t MemoryRegistry::CloseKey(RegistryKey hKey) noexcept {
  if (HiveName(hKey) != nullptr) return RegistrySuccess;
  const auto found = FindHandle(hKey);
  if (found == handles_.end()) return RegistryInvalidHandle;
  handles_.erase(found);
  return RegistrySuccess;
}

std::int32_t MemoryRegistry::QueryValue(RegistryKey hKey, const std::string& sName, char* pData,
                                        std::uint32_t& lSize) {
  Handle handle;
  const std::int32_t lResult = Resolve(hKey, handle);
  if (lResult != RegistrySuccess) return lResult;
  const RegistryValue* value = handle.node->FindValue(Name(sName));
  return value == nullptr ? RegistryNotFound : CopyOut(value->sData, pData, lSize);
}

std::int32_t MemoryRegistry::SetValue(RegistryKey hKey, const std::string& sName,
                                      std::uint32_t lType, const char* pData, std::uint32_t lSize) {
  RegistryNode* node = nullptr;
  const std::int32_t lResult = ResolveForWriting(hKey, node);
  if (lResult != RegistrySuccess) return lResult;
  std::string sStored(Name(sName));
  if (sStored.size() > RegistryLongestValueName) return RegistryInvalidParameter;
  if (!refusedValues_.empty() && refusedValues_.contains(UpperCase1252(sStored)))
    return RegistryAccessDenied;
  node->SetValue(std::move(sStored), lType, std::string(pData, lSize));
  return RegistrySuccess;
}

std::int32_t MemoryRegistry::DeleteValue(RegistryKey hKey, const std::string& sName) {
  RegistryNode* node = nullptr;
  const std::int32_t lResult = ResolveForWriting(hKey, node);
  if (lResult != RegistrySuccess) return lResult;
  return node->RemoveValue(Name(sName)) ? RegistrySuccess : RegistryNotFound;
}

std::int32_t MemoryRegistry::EnumKey(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                                     std::uint32_t lSize) {
  Handle handle;
  const std::int32_t lResult = Resolve(hKey, handle);
  if (lResult != RegistrySuccess) return lResult;
  if (lIndex >= handle.node->KeyCount()) return RegistryNoMoreItems;
  const std::string& sName = handle.node->Key(lIndex).Name();
  if (sName.size() >= lSize) return RegistryMoreData;
  CopyName(sName, pName);
  return RegistrySuccess;
}

std::int32_t MemoryRegistry::EnumValue(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                                       std::uint32_t& lNameSize, char* pData,
                                       std::uint32_t& lDataSize) {
  Handle handle;
  std::int32_t lResult = Resolve(hKey, handle);
  if (lResult != RegistrySuccess) return lResult;
  if (lIndex >= handle.node->AllValues().size()) return RegistryNoMoreItems;
  const RegistryValue& value = handle.node->Value(lIndex);
  if (value.sName.size() >= lNameSize) return RegistryMoreData;
  lResult = CopyOut(value.sData, pData, lDataSize);
  if (lResult != RegistrySuccess) return lResult;
  CopyName(value.sName, pName);
  lNameSize = static_cast<std::uint32_t>(value.sName.size());
  return RegistrySuccess;
}

std::int32_t MemoryRegistry::DeleteKey(RegistryKey hParent, const std::string& sName) {
  RegistryNode* node = nullptr;
  const std::int32_t lResult = Walk(hParent, sName, node);
  if (lResult != RegistrySuccess) return lResult;
  const bool bHive = node->Parent() == root_.get();
  if (bHive || node->KeyCount() > 0 || Refuses(refusedDeletion_, *node))
    return RegistryAccessDenied;
  for (Handle& handle : handles_)
    if (handle.node == node) handle.node = nullptr;
  node->Parent()->RemoveKey(node->Name());
  return RegistrySuccess;
}

std::int32_t MemoryRegistry::QueryDefault(RegistryKey hKey, const std::string& sName, char* pData,
                                          std::int32_t& lSize) {
  RegistryNode* node = nullptr;
  std::int32_t lResult = Walk(hKey, sName, node);
  if (lResult != RegistrySuccess) return lResult;
  const RegistryValue* value = node->FindValue("");
  std::string sText = value == nullptr ? "" : value->sData;
  if (!sText.ends_with('\0')) sText += '\0';
  auto lLength = static_cast<std::uint32_t>(std::max(lSize, 0));
  lResult = CopyOut(sText, pData, lLength);
  lSize = static_cast<std::int32_t>(lLength);
  return lResult;
}

void MemoryRegistry::ReplaceTree(std::unique_ptr<RegistryNode> root) {
  Handles handles = handles_;
  for (Handle& handle : handles)
    if (handle.node != nullptr) handle.node = Descend(root.get(), handle.node->Path());
  handles_ = std::move(handles);
  root_ = std::move(root);
}

void MemoryRegistry::SetText(const std::string& sPath, const std::string& sName,
                             const std::string& sText) {
  std::string_view sRest = sPath;
  std::string_view sLevel;
  RegistryNode* node = NextLevel(sRest, sLevel) ? root_->FindKey(sLevel) : nullptr;
  if (node == nullptr) throw std::invalid_argument("No hive: " + sPath);
  while (NextLevel(sRest, sLevel)) node = &node->AddKey(sLevel);
  node->SetValue(sName, RegistryTypeText, sText);
}

std::optional<std::string> MemoryRegistry::Text(const std::string& sPath,
                                                const std::string& sName) const {
  const RegistryNode* node = Descend(root_.get(), sPath);
  const RegistryValue* value = node == nullptr ? nullptr : node->FindValue(sName);
  if (value == nullptr) return std::nullopt;
  const std::size_t nLength = value->sData.size() - (value->sData.ends_with('\0') ? 1 : 0);
  return value->sData.substr(0, nLength);
}

bool MemoryRegistry::Refuses(const FoldedSet& paths, const RegistryNode& node) {
  return !paths.empty() && paths.contains(UpperCase1252(node.Path()));
}

void MemoryRegistry::RefuseAccess(const std::string& sPath) {
  refusedAccess_.insert(UpperCase1252(sPath));
}

void MemoryRegistry::RefuseCreation(const std::string& sPath) {
  refusedCreation_.insert(UpperCase1252(sPath));
}

void MemoryRegistry::RefuseDeletion(const std::string& sPath) {
  refusedDeletion_.insert(UpperCase1252(sPath));
}

void MemoryRegistry::RefuseValue(const std::string& sName) {
  refusedValues_.insert(UpperCase1252(sName));
}

void MemoryRegistry::ClearFaults() {
  for (FoldedSet* folded : {&refusedAccess_, &refusedCreation_, &refusedDeletion_, &refusedValues_})
    folded->clear();
}

}  // namespace trelin
