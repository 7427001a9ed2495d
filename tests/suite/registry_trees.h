#pragma once

#include <map>

#include "suite/reg_entry.h"
#include "testing/program_test.h"
#include "tests/shared/registry_contract.h"

namespace trelin {

// The registry accessor's operations on trees, on every Registry. The tests
// stand in reg_entry_trees_test.cpp; the accessor's root is the contract's key.
class RegistryTrees : public RegistryContract, protected FakePlatform {
 protected:
  RegistryTrees() { objReg.SetDefaultRoot(Base); }

  // Creates the key level by level: a long path is not taken everywhere.
  void Put(const std::string& sPath, const std::string& sName, const std::string& sData,
           RegistryKey hParent = RegistryKey::None, std::uint32_t lType = RegistryTypeText) {
    const std::size_t nEnd = sPath.find('\\');
    const RegistryKey hKey =
        Create(hParent == RegistryKey::None ? base_ : hParent, sPath.substr(0, nEnd));
    if (nEnd == std::string::npos)
      EXPECT_EQ(RegistrySuccess, Set(registry_, hKey, sName, sData, lType));
    else
      Put(sPath.substr(nEnd + 1), sName, sData, hKey, lType);
    registry_.CloseKey(hKey);
  }

  // "a=1 b=2 [Key c=3]", in the order of the names; "none" for no key.
  std::string Tree(const std::string& sPath, RegistryKey hHive = RegistryKey::None) {
    RegistryKey hKey = RegistryKey::None;
    if (registry_.OpenKey(hHive == RegistryKey::None ? base_ : hHive, sPath, RegistryReadWrite,
                          hKey) != 0)
      return "none";
    std::map<std::string, std::string> parts;
    std::array<char, 20000> data{};
    std::array<char, 256> name{};
    for (std::uint32_t l = 0, lName = 256, lData = 20000;
         registry_.EnumValue(hKey, l, name.data(), lName, data.data(), lData) == 0;
         ++l, lName = 256, lData = 20000)
      parts[name.data()] = name.data() + ("=" + std::string(data.data(), lData));
    for (const std::string& sKey : Keys(hKey))
      parts["\xFF" + sKey] =
          "[" + sKey + " " + Tree(sPath.empty() ? sKey : sPath + "\\" + sKey, hHive) + "]";
    registry_.CloseKey(hKey);
    std::string sTree;
    for (const auto& part : parts) sTree += (sTree.empty() ? "" : " ") + part.second;
    return sTree;
  }

  const PlatformScope ofContract{{&registry_, &libraries, &system}};
  RegEntry objReg;
};

}  // namespace trelin
