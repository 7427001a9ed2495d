#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/registry.h"

namespace trelin {

using RegistryFactory = std::function<std::unique_ptr<Registry>()>;

// What every Registry does. The tests stand in memory_registry_test.cpp; each
// implementation's own tests instantiate them. They work below one key, which
// they remove again.
class RegistryContract : public testing::TestWithParam<RegistryFactory> {
 protected:
  static constexpr const char* Base = "SOFTWARE\\TrelinContract";

  void SetUp() override {
    Clear(Base);
    base_ = Create(RegistryKey::LocalMachine, Base);
  }
  void TearDown() override {
    registry_->CloseKey(base_);
    Clear(Base);
  }

  RegistryKey Create(RegistryKey hParent, const std::string& sPath) {
    RegistryKey hKey = RegistryKey::None;
    EXPECT_EQ(RegistrySuccess, registry_->CreateKey(hParent, sPath, RegistryReadWrite, hKey));
    return hKey;
  }
  std::int32_t Open(RegistryKey hParent, const std::string& sPath) {
    RegistryKey hKey = RegistryKey::None;
    const std::int32_t lResult = registry_->OpenKey(hParent, sPath, RegistryReadWrite, hKey);
    if (lResult == RegistrySuccess) registry_->CloseKey(hKey);
    return lResult;
  }
  std::int32_t Set(RegistryKey hKey, const std::string& sName, const std::string& sData,
                   std::uint32_t lType = RegistryTypeText) {
    return registry_->SetValue(hKey, sName, lType, sData.data(),
                               static_cast<std::uint32_t>(sData.size()));
  }
  // The data, or the result's number in angle brackets.
  std::string Get(RegistryKey hKey, const std::string& sName, std::uint32_t lSize = 255) {
    std::array<char, 512> buffer{};
    const std::int32_t lResult = registry_->QueryValue(hKey, sName, buffer.data(), lSize);
    return lResult == RegistrySuccess ? std::string(buffer.data(), lSize)
                                      : "<" + std::to_string(lResult) + ">";
  }
  std::vector<std::string> Keys(RegistryKey hKey) {
    std::vector<std::string> names;
    std::array<char, 256> name{};
    while (registry_->EnumKey(hKey, static_cast<std::uint32_t>(names.size()), name.data(), 256) ==
           RegistrySuccess)
      names.emplace_back(name.data());
    return names;
  }
  void Clear(const std::string& sPath) {
    RegistryKey hKey = RegistryKey::None;
    if (registry_->OpenKey(RegistryKey::LocalMachine, sPath, RegistryReadWrite, hKey) != 0) return;
    for (const std::string& sName : Keys(hKey)) Clear(sPath + "\\" + sName);
    registry_->CloseKey(hKey);
    registry_->DeleteKey(RegistryKey::LocalMachine, sPath);
  }

  std::unique_ptr<Registry> registry_ = GetParam()();
  RegistryKey base_ = RegistryKey::None;
};

}  // namespace trelin
