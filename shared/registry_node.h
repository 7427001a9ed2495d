#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "shared/numbered_places.h"
#include "shared/registry_value.h"

namespace trelin {

// A key of a registry kept in memory, with its values and subkeys. Names match
// in any letter case of the code page 1252 and keep the case they came with.
// A key owns its subkeys; it is not copied or moved, as they point back to it.
// What lacks the memory throws std::bad_alloc and has changed nothing.
class RegistryNode {
 public:
  using Values = std::list<RegistryValue>;

  explicit RegistryNode(std::string_view sName = "", RegistryNode* parent = nullptr)
      : sName_(sName), parent_(parent) {}
  RegistryNode(const RegistryNode&) = delete;
  RegistryNode& operator=(const RegistryNode&) = delete;

  // A root without a name, whose subkeys are the five hives.
  static std::unique_ptr<RegistryNode> NewTree();

  const std::string& Name() const { return sName_; }
  RegistryNode* Parent() const { return parent_; }
  std::string Path() const;   // "HKEY_LOCAL_MACHINE\SOFTWARE\..."
  std::size_t Depth() const;  // of a hive: 1

  // Subkeys, in the order of their names in upper case.
  std::size_t KeyCount() const { return keys_.size(); }
  RegistryNode& Key(std::size_t nIndex) const { return **keyPlaces_.At(keys_, nIndex); }
  RegistryNode* FindKey(std::string_view sName) const;
  RegistryNode& AddKey(std::string_view sName);  // the existing one if there is one
  void RemoveKey(std::string_view sName);

  // Values, in the order of their creation.
  const Values& AllValues() const { return values_; }
  const RegistryValue& Value(std::size_t nIndex) const { return *valuePlaces_.At(values_, nIndex); }
  const RegistryValue* FindValue(std::string_view sName) const;
  void SetValue(std::string sName, std::uint32_t lType, std::string sData);
  bool RemoveValue(std::string_view sName);  // false: there is none

 private:
  using OwnedKey = std::unique_ptr<RegistryNode>;

  static std::string_view NameOf(std::string_view sName) { return sName; }
  static std::string_view NameOf(const OwnedKey& key) { return key->sName_; }

  struct Before {
    using is_transparent = void;
    template <class One, class Other>
    bool operator()(const One& one, const Other& other) const {
      return IsBefore(NameOf(one), NameOf(other));
    }
  };
  static bool IsBefore(std::string_view sOne, std::string_view sOther);

  using Keys = std::set<OwnedKey, Before>;

  std::string sName_;
  RegistryNode* parent_;
  Keys keys_;
  NumberedPlaces<Keys> keyPlaces_;
  Values values_;
  ValueTable valueTable_;
  NumberedPlaces<Values> valuePlaces_;
};

}  // namespace trelin
