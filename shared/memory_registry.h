#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "seam/registry.h"
#include "shared/registry_node.h"

namespace trelin {

constexpr std::uint32_t RegistryWriteAccess = 0x6;  // KEY_SET_VALUE with KEY_CREATE_SUB_KEY

constexpr std::int32_t RegistryInvalidParameter = 87;  // ERROR_INVALID_PARAMETER
constexpr std::int32_t RegistryBadPath = 161;          // ERROR_BAD_PATHNAME

// A registry in memory, with the results that Windows gives. For tests it can
// refuse what a real registry refuses to users without the right.
//
// A path may end in backslashes, and several in a row count as one; one that
// begins with a backslash is refused with RegistryBadPath. What goes beyond the
// limits of registry.h is refused with RegistryInvalidParameter. A name or path
// ends at its first NUL.
class MemoryRegistry : public Registry {
 public:
  // The tree is one that RegistryNode::NewTree has made.
  explicit MemoryRegistry(std::unique_ptr<RegistryNode> tree = RegistryNode::NewTree())
      : root_(std::move(tree)) {}

  std::int32_t OpenKey(RegistryKey hParent, const std::string& sPath, std::uint32_t lAccess,
                       RegistryKey& hKey) override;
  std::int32_t CreateKey(RegistryKey hParent, const std::string& sPath, std::uint32_t lAccess,
                         RegistryKey& hKey) override;
  std::int32_t CloseKey(RegistryKey hKey) noexcept override;
  std::int32_t QueryValue(RegistryKey hKey, const std::string& sName, char* pData,
                          std::uint32_t& lSize) override;
  std::int32_t SetValue(RegistryKey hKey, const std::string& sName, std::uint32_t lType,
                        const char* pData, std::uint32_t lSize) override;
  std::int32_t DeleteValue(RegistryKey hKey, const std::string& sName) override;
  std::int32_t EnumKey(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                       std::uint32_t lSize) override;
  std::int32_t EnumValue(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                         std::uint32_t& lNameSize, char* pData, std::uint32_t& lDataSize) override;
  std::int32_t DeleteKey(RegistryKey hParent, const std::string& sName) override;
  std::int32_t QueryDefault(RegistryKey hKey, const std::string& sName, char* pData,
                            std::int32_t& lSize) override;

  // The number of handles open now, the hives not counted.
  std::size_t OpenHandles() const { return handles_.size(); }

  // The key of an open handle or hive, or the key sPath below it; nullptr when
  // there is none.
  const RegistryNode* Find(RegistryKey hKey, const std::string& sPath = "") const;

  // Open handles of a tree that is replaced stay with the key of the same path in
  // the new one; where it is missing, they count as handles of a deleted key.
  const RegistryNode& Tree() const { return *root_; }
  void ReplaceTree(std::unique_ptr<RegistryNode> root);

  // For tests: full paths such as "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta".
  // SetText creates what is missing and stores a REG_SZ without a NUL at its
  // end, as the program itself does; Text leaves one out. The first throws
  // std::invalid_argument for a path that does not begin with a hive.
  void SetText(const std::string& sPath, const std::string& sName, const std::string& sText);
  std::optional<std::string> Text(const std::string& sPath, const std::string& sName) const;

  // Faults, for tests: what refuses from now on with RegistryAccessDenied.
  void RefuseAccess(const std::string& sPath);    // the key does not open for writing
  void RefuseCreation(const std::string& sPath);  // no key can be created right below it
  void RefuseDeletion(const std::string& sPath);  // the key cannot be deleted
  void RefuseValue(const std::string& sName);     // cannot be written, in any key
  void ClearFaults();

 private:
  using FoldedSet = std::set<std::string>;  // paths or names in upper case

  struct Handle {
    RegistryNode* node = nullptr;  // nullptr: the key was deleted
    bool bWrite = false;
    RegistryKey hKey = RegistryKey::None;
  };
  using Handles = std::vector<Handle>;  // few are open at a time

  std::int32_t Resolve(RegistryKey hKey, Handle& handle) const;
  std::int32_t ResolveForWriting(RegistryKey hKey, RegistryNode*& node) const;
  std::int32_t Walk(RegistryKey hParent, const std::string& sPath, RegistryNode*& node) const;
  std::int32_t NewHandle(RegistryNode& node, std::uint32_t lAccess, RegistryKey& hKey);
  static bool Refuses(const FoldedSet& paths, const RegistryNode& node);

  Handles::const_iterator FindHandle(RegistryKey hKey) const;

  std::unique_ptr<RegistryNode> root_;
  Handles handles_;
  std::int32_t lLastHandle_ = 0;
  FoldedSet refusedAccess_;
  FoldedSet refusedCreation_;
  FoldedSet refusedDeletion_;
  FoldedSet refusedValues_;
};

}  // namespace trelin
