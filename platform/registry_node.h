#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace trelin {

struct RegistryValue {
  std::string sName;  // empty: the default value
  std::uint32_t lType = 0;
  std::string sData;  // the bytes as they are, a terminating NUL included

  bool operator==(const RegistryValue&) const = default;
};

// For tables of names that match in any letter case.
struct FoldedHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view sName) const;
};
struct FoldedEqual {
  using is_transparent = void;
  bool operator()(std::string_view sOne, std::string_view sOther) const;
};

// A key of a registry kept in memory, with its values and subkeys. Names match
// in any letter case of the code page 1252 and keep the case they came with.
// A key owns its subkeys; it is not copied or moved, as they point back to it.
class RegistryNode {
 public:
  explicit RegistryNode(std::string sName = "", RegistryNode* parent = nullptr)
      : sName_(std::move(sName)), parent_(parent) {}
  RegistryNode(const RegistryNode&) = delete;
  RegistryNode& operator=(const RegistryNode&) = delete;

  // A root without a name, whose subkeys are the five hives.
  static std::unique_ptr<RegistryNode> NewTree();

  const std::string& Name() const { return sName_; }
  RegistryNode* Parent() const { return parent_; }
  std::string Path() const;   // "HKEY_LOCAL_MACHINE\SOFTWARE\..."
  std::size_t Depth() const;  // of a hive: 1

  // Subkeys, in the order of their names in upper case.
  std::size_t KeyCount() const { return sorted_.size(); }
  RegistryNode& Key(std::size_t nIndex) const { return *sorted_[nIndex]; }
  RegistryNode* FindKey(std::string_view sName) const;
  RegistryNode& AddKey(std::string_view sName);  // the existing one if there is one
  void RemoveKey(std::string_view sName);

  // Values, in the order of their creation.
  const std::vector<RegistryValue>& Values() const { return values_; }
  const RegistryValue* FindValue(std::string_view sName) const;
  void SetValue(const std::string& sName, std::uint32_t lType, std::string sData);
  bool RemoveValue(std::string_view sName);  // false: there is none

 private:
  template <typename T>
  using NameMap = std::unordered_map<std::string, T, FoldedHash, FoldedEqual>;

  std::vector<RegistryNode*>::iterator Place(std::string_view sName);

  std::string sName_;
  RegistryNode* parent_;
  NameMap<std::unique_ptr<RegistryNode>> keys_;
  std::vector<RegistryNode*> sorted_;  // what keys_ owns, in order
  std::vector<RegistryValue> values_;
  NameMap<std::size_t> valueIndex_;
};

}  // namespace trelin
