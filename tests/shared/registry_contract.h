#pragma once

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "real_platform.h"
#include "shared/memory_registry.h"
#include "testing/temporary_folder.h"

namespace trelin {

constexpr RegistryKey Hive = RegistryKey::LocalMachine;

inline std::int32_t Set(Registry& registry, RegistryKey hKey, const std::string& sName,
                        const std::string& sData, std::uint32_t lType = RegistryTypeText) {
  const auto lSize = static_cast<std::uint32_t>(sData.size());
  return registry.SetValue(hKey, sName, lType, sData.data(), lSize);
}

// The data, or the result's number in angle brackets.
inline std::string Get(Registry& registry, RegistryKey hKey, const std::string& sName,
                       std::uint32_t lSize = 255) {
  std::array<char, 255> buffer{};
  const std::int32_t lResult = registry.QueryValue(hKey, sName, buffer.data(), lSize);
  return lResult == 0 ? std::string(buffer.data(), lSize) : "<" + std::to_string(lResult) + ">";
}

inline RegistryKey Create(Registry& registry, RegistryKey hParent, const std::string& sPath) {
  RegistryKey hKey = RegistryKey::None;
  EXPECT_EQ(RegistrySuccess, registry.CreateKey(hParent, sPath, RegistryReadWrite, hKey)) << sPath;
  return hKey;
}

inline std::vector<std::string> KeysOf(Registry& registry, RegistryKey hKey) {
  std::vector<std::string> names;
  std::array<char, 256> name{};
  while (registry.EnumKey(hKey, static_cast<std::uint32_t>(names.size()), name.data(), 256) == 0)
    names.emplace_back(name.data());
  return names;
}

// What is in a key: "a=1 b=2 [Key c=3]", in the order of the names.
inline std::string TreeOf(Registry& registry, RegistryKey hKey) {
  std::multiset<std::string> parts;
  std::array<char, 20000> data{};
  std::array<char, 256> name{};
  for (std::uint32_t l = 0, lName = 256, lData = 20000;
       registry.EnumValue(hKey, l, name.data(), lName, data.data(), lData) == 0;
       ++l, lName = 256, lData = 20000)
    parts.insert(name.data() + ("=" + std::string(data.data(), lData)));
  std::string sTree;
  for (const auto& sPart : parts) sTree += (sTree.empty() ? "" : " ") + sPart;
  for (const std::string& sKey : KeysOf(registry, hKey)) {
    RegistryKey hSubkey = RegistryKey::None;
    registry.OpenKey(hKey, sKey, RegistryReadWrite, hSubkey);
    sTree += (sTree.empty() ? "[" : " [") + sKey + " " + TreeOf(registry, hSubkey) + "]";
    registry.CloseKey(hSubkey);
  }
  return sTree;
}

// Puts what such a text says into a key, up to its end or a bracket, level by level:
// a long path is not taken everywhere. Returns the rest of the text.
inline std::string_view PutTree(Registry& registry, RegistryKey hKey, std::string_view sTree,
                                std::uint32_t lType = RegistryTypeText) {
  while (!sTree.empty() && sTree[0] != ']') {
    const std::string sPart(sTree.substr(0, sTree.find_first_of(" ]")));
    const std::size_t nEquals = sPart.find('=');
    sTree.remove_prefix(sPart.size());
    if (sPart.starts_with('[')) {
      const RegistryKey hSubkey = Create(registry, hKey, sPart.substr(1));
      sTree = PutTree(registry, hSubkey, sTree, lType).substr(1);
      registry.CloseKey(hSubkey);
    } else if (!sPart.empty()) {
      EXPECT_EQ(0, Set(registry, hKey, sPart.substr(0, nEquals), sPart.substr(nEquals + 1), lType));
    }
    if (sTree.starts_with(' ')) sTree.remove_prefix(1);
  }
  return sTree;
}

// What every Registry does: the one in memory and the platform's own. The tests work
// below one key, which they remove again.
class RegistryContract : public testing::TestWithParam<std::string> {
 protected:
  static constexpr const char* Base = "SOFTWARE\\TrelinContract";

  RegistryContract() {
    Clear(Hive, Base);
    base_ = Create(registry_, Hive, Base);
  }
  ~RegistryContract() override {
    registry_.CloseKey(base_);
    Clear(Hive, Base);
  }

  void Clear(RegistryKey hParent, const std::string& sPath) {
    RegistryKey hKey = RegistryKey::None;
    if (registry_.OpenKey(hParent, sPath, RegistryReadWrite, hKey) != 0) return;
    for (const std::string& sName : KeysOf(registry_, hKey)) Clear(hKey, sName);
    registry_.CloseKey(hKey);
    registry_.DeleteKey(hParent, sPath);
  }

  const TemporaryFolder folder_;
  const std::unique_ptr<Registry> owner_ =
      GetParam() == "Memory" ? std::make_unique<MemoryRegistry>() : RealRegistry(folder_ / "");
  Registry& registry_ = *owner_;
  RegistryKey base_ = RegistryKey::None;
};

}  // namespace trelin
