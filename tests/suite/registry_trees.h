#pragma once

#include "suite/reg_entry.h"
#include "testing/program_test.h"
#include "tests/shared/registry_contract.h"

namespace trelin {

// The registry accessor's operations on trees, on every Registry. The tests
// stand in reg_entry_trees_test.cpp; the accessor's root is the contract's key.
class RegistryTrees : public RegistryContract, protected FakePlatform {
 protected:
  RegistryTrees() { objReg.SetDefaultRoot(Base); }

  // What is in the key; "none" for no key.
  std::string Tree(const std::string& sPath, RegistryKey hParent) {
    RegistryKey hKey = RegistryKey::None;
    if (registry_.OpenKey(hParent, sPath, RegistryReadWrite, hKey) != 0) return "none";
    const std::string sTree = TreeOf(registry_, hKey);
    registry_.CloseKey(hKey);
    return sTree;
  }

  const PlatformScope ofContract{{&registry_, &libraries, &system}};
  RegEntry objReg;
};

}  // namespace trelin
