#include "systems/host/file_registry.h"

#include <pwd.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string_view>
#include <thread>

#include "seam/platform_error.h"
#include "shared/at_exit.h"
#include "shared/registry_file.h"
#include "systems/host/host_path.h"

namespace trelin {

namespace {

constexpr int MostTries = 20;
constexpr std::chrono::milliseconds PauseBetweenTries{5};

std::string Variable(const char* sName) {
  const char* sValue = std::getenv(sName);
  return sValue == nullptr ? "" : sValue;
}

std::string HomeFolder() {
  std::string sHome = Variable("HOME");
  if (!sHome.empty()) return sHome;
  const passwd* user = getpwuid(getuid());
  return user == nullptr ? "/" : user->pw_dir;
}

bool HasLineBreak(const std::string& sName) { return sName.find('\n') != std::string::npos; }

}  // namespace

std::string FileRegistry::DefaultPath() {
  std::string sPath = Variable("TRELIN_REGISTRY");
  if (!sPath.empty()) return sPath;
  const std::string sData = Variable("XDG_DATA_HOME");  // counts only as a full path
  return (sData.starts_with('/') ? sData : HomeFolder() + "/.local/share") + "/trelin/registry.reg";
}

// The three of them return whether the memory holds what the file holds: as it is
// now, when it is read anew, and when it was read last.

bool FileRegistry::Refresh() { return bSettled_ && store_.Stamp() == stamp_ ? !bDamaged_ : Load(); }

bool FileRegistry::Load() {
  try {
    if (auto tree = ReadTree()) memory_.ReplaceTree(std::move(tree));
    bDamaged_ = false;
  } catch (const PlatformError& error) {
    sTrouble_ = error.what();
    bDamaged_ = true;
  }
  return !bDamaged_;
}

bool FileRegistry::Loaded() { return nReads_ == 0 ? Load() : !bDamaged_; }

// Some editors do not put a whole new file in the place of the old one, so that it is
// damaged or missing for a moment: it is read again until that has passed, unless it
// was damaged before. Returns no tree when the file holds what the memory holds.
std::unique_ptr<RegistryNode> FileRegistry::ReadTree() {
  const bool bThere = stamp_.nInode != 0;
  const int nTries = bDamaged_ ? 1 : MostTries;
  for (int nTry = 1;; ++nTry) {
    bSettled_ = false;
    ++nReads_;
    const RegistryStore::Content content = store_.Read();
    stamp_ = content.stamp;
    bWritable_ = content.bWritable;
    bSettled_ = stamp_.Settled();
    const bool bMissing = stamp_.nReason != 0;
    if (bMissing && (!bThere || nTry == nTries)) {
      sKnown_.reset();
      return RegistryNode::NewTree();
    }
    try {
      if (!bMissing) return Parse(content.sBytes);
    } catch (const PlatformError&) {
      if (nTry == nTries) throw;
    }
    std::this_thread::sleep_for(PauseBetweenTries);
  }
}

// A file that has just been changed may change again without another stamp, so it is
// read again and again for a moment, but parsed only when its bytes are other ones.
std::unique_ptr<RegistryNode> FileRegistry::Parse(const std::string& sBytes) {
  std::unique_ptr<RegistryNode> tree;
  if (sKnown_ != sBytes) {
    tree = ReadRegistryText(sBytes, ShownPath(store_.Path()));
    ++nParses_;
  }
  sKnown_.reset();
  if (!bSettled_) sKnown_ = sBytes;
  return tree;
}

// Under the lock, applies the change to the file's newest state and saves it.
std::int32_t FileRegistry::Write(const std::function<std::int32_t()>& change) {
  if (!bWritable_) return RegistryAccessDenied;
  std::int32_t lResult = RegistrySuccess;
  const FileDescriptor lock = store_.Lock(lResult);
  if (lResult == RegistryUnusable) sTrouble_ = store_.LockTrouble();
  if (lResult != RegistrySuccess) return lResult;
  if (!Refresh()) return RegistryUnusable;
  if (!bWritable_) return RegistryAccessDenied;
  sKnown_.reset();
  lResult = change();
  if (lResult != RegistrySuccess) return lResult;
  bSettled_ = false;  // until the change is saved
  std::string sBytes = WriteRegistryText(memory_.Tree());
  lResult = store_.Replace(sBytes, stamp_);
  if (lResult != RegistrySuccess) return Load() ? lResult : RegistryUnusable;
  bSettled_ = stamp_.Settled();
  sKnown_ = std::move(sBytes);
  return RegistrySuccess;
}

std::int32_t FileRegistry::OpenKey(RegistryKey hParent, const std::string& sPath,
                                   std::uint32_t lAccess, RegistryKey& hKey) {
  if (!Refresh()) return RegistryUnusable;
  RegistryKey hOpened = RegistryKey::None;
  const std::int32_t lResult = memory_.OpenKey(hParent, sPath, lAccess, hOpened);
  if (lResult != RegistrySuccess) return lResult;
  if (!bWritable_ && (lAccess & RegistryWriteAccess) != 0) {
    memory_.CloseKey(hOpened);
    return RegistryAccessDenied;
  }
  hKey = hOpened;
  return RegistrySuccess;
}

std::int32_t FileRegistry::CreateKey(RegistryKey hParent, const std::string& sPath,
                                     std::uint32_t lAccess, RegistryKey& hKey) {
  std::int32_t lResult = OpenKey(hParent, sPath, lAccess, hKey);
  if (lResult != RegistryNotFound) return lResult;
  if (HasLineBreak(sPath)) return RegistryInvalidParameter;
  RegistryKey hCreated = RegistryKey::None;
  const AtExit close([&] {
    if (lResult != RegistrySuccess) memory_.CloseKey(hCreated);
  });
  lResult = Write([&] { return memory_.CreateKey(hParent, sPath, lAccess, hCreated); });
  if (lResult == RegistrySuccess) hKey = hCreated;
  return lResult;
}

std::int32_t FileRegistry::QueryValue(RegistryKey hKey, const std::string& sName, char* pData,
                                      std::uint32_t& lSize) {
  return Loaded() ? memory_.QueryValue(hKey, sName, pData, lSize) : RegistryUnusable;
}

// In the three operations below, what changes nothing is left to the memory,
// which knows the result.

std::int32_t FileRegistry::SetValue(RegistryKey hKey, const std::string& sName, std::uint32_t lType,
                                    const char* pData, std::uint32_t lSize) {
  if (!Refresh()) return RegistryUnusable;
  const auto change = [&] { return memory_.SetValue(hKey, sName, lType, pData, lSize); };
  const RegistryNode* node = memory_.Find(hKey);
  if (node == nullptr) return change();
  const RegistryValue* value = node->FindValue(sName.c_str());
  if (value != nullptr && value->lType == lType && value->sData == std::string_view(pData, lSize))
    return change();
  return HasLineBreak(sName) ? RegistryInvalidParameter : Write(change);
}

std::int32_t FileRegistry::DeleteValue(RegistryKey hKey, const std::string& sName) {
  if (!Refresh()) return RegistryUnusable;
  const auto change = [&] { return memory_.DeleteValue(hKey, sName); };
  const RegistryNode* node = memory_.Find(hKey);
  if (node == nullptr || node->FindValue(sName.c_str()) == nullptr) return change();
  return Write(change);
}

std::int32_t FileRegistry::DeleteKey(RegistryKey hParent, const std::string& sName) {
  if (!Refresh()) return RegistryUnusable;
  const auto change = [&] { return memory_.DeleteKey(hParent, sName); };
  const RegistryNode* node = memory_.Find(hParent, sName);
  if (node == nullptr || node->KeyCount() > 0) return change();
  return Write(change);
}

std::int32_t FileRegistry::EnumKey(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                                   std::uint32_t lSize) {
  return Loaded() ? memory_.EnumKey(hKey, lIndex, pName, lSize) : RegistryUnusable;
}

std::int32_t FileRegistry::EnumValue(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                                     std::uint32_t& lNameSize, char* pData,
                                     std::uint32_t& lDataSize) {
  return Loaded() ? memory_.EnumValue(hKey, lIndex, pName, lNameSize, pData, lDataSize)
                  : RegistryUnusable;
}

std::int32_t FileRegistry::QueryDefault(RegistryKey hKey, const std::string& sName, char* pData,
                                        std::int32_t& lSize) {
  return Loaded() ? memory_.QueryDefault(hKey, sName, pData, lSize) : RegistryUnusable;
}

}  // namespace trelin
