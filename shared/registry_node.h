#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
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
      : sName_(std::move(sName)),
        parent_(parent),
        valueIndex_(0, HashOfName{this}, EqualName{this}) {}
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
  // A set of positions in values_, found by the names that stand there.
  struct HashOfName {
    using is_transparent = void;
    std::size_t operator()(std::string_view sName) const { return FoldedHash()(sName); }
    std::size_t operator()(std::size_t nValue) const {
      return FoldedHash()(node->values_[nValue].sName);
    }
    const RegistryNode* node;
  };
  struct EqualName {
    using is_transparent = void;
    bool operator()(std::size_t nOne, std::size_t nOther) const { return nOne == nOther; }
    bool operator()(std::string_view sName, std::size_t nValue) const {
      return FoldedEqual()(sName, node->values_[nValue].sName);
    }
    bool operator()(std::size_t nValue, std::string_view sName) const {
      return (*this)(sName, nValue);
    }
    const RegistryNode* node;
  };

  std::vector<RegistryNode*>::iterator Place(std::string_view sName);

  std::string sName_;
  RegistryNode* parent_;
  std::unordered_map<std::string, std::unique_ptr<RegistryNode>, FoldedHash, FoldedEqual> keys_;
  std::vector<RegistryNode*> sorted_;  // what keys_ owns, in order
  std::vector<RegistryValue> values_;
  std::unordered_set<std::size_t, HashOfName, EqualName> valueIndex_;
};

}  // namespace trelin
