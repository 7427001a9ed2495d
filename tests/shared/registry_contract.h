#pragma once

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "seam/registry.h"

namespace trelin {

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

// What every Registry does. The tests stand in memory_registry_test.cpp; each
// implementation's own tests instantiate them. They work below one key, which
// they remove again.
class RegistryContract : public testing::TestWithParam<std::function<std::unique_ptr<Registry>()>> {
 protected:
  static constexpr const char* Base = "SOFTWARE\\TrelinContract";

  RegistryContract() {
    Clear(RegistryKey::LocalMachine, Base);
    base_ = Create(RegistryKey::LocalMachine, Base);
  }
  ~RegistryContract() override {
    registry_.CloseKey(base_);
    Clear(RegistryKey::LocalMachine, Base);
  }

  RegistryKey Create(RegistryKey hParent, const std::string& sPath) {
    RegistryKey hKey = RegistryKey::None;
    EXPECT_EQ(RegistrySuccess, registry_.CreateKey(hParent, sPath, RegistryReadWrite, hKey));
    return hKey;
  }
  std::vector<std::string> Keys(RegistryKey hKey) {
    std::vector<std::string> names;
    std::array<char, 256> name{};
    while (registry_.EnumKey(hKey, static_cast<std::uint32_t>(names.size()), name.data(), 256) == 0)
      names.emplace_back(name.data());
    return names;
  }
  void Clear(RegistryKey hParent, const std::string& sPath) {
    RegistryKey hKey = RegistryKey::None;
    if (registry_.OpenKey(hParent, sPath, RegistryReadWrite, hKey) != 0) return;
    for (const std::string& sName : Keys(hKey)) Clear(hKey, sName);
    registry_.CloseKey(hKey);
    registry_.DeleteKey(hParent, sPath);
  }

  std::unique_ptr<Registry> owner_ = GetParam()();
  Registry& registry_ = *owner_;
  RegistryKey base_ = RegistryKey::None;
};

}  // namespace trelin
