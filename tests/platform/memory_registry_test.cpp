#include "platform/memory_registry.h"

#include <gtest/gtest.h>

#include "tests/platform/registry_contract.h"

namespace trelin {

namespace {

using Texts = std::vector<std::string>;

INSTANTIATE_TEST_SUITE_P(Memory, RegistryContract,
                         testing::Values([] { return std::make_unique<MemoryRegistry>(); }));

TEST_P(RegistryContract, PathsFindKeys) {
  registry_->CloseKey(Create(base_, "One\\Two"));
  struct Case {
    std::string sPath;
    std::int32_t lResult;
  };
  for (const Case& c : {Case{"", 0}, Case{"One", 0}, Case{"oNE\\TWO", 0}, Case{"One\\Two\\", 0},
                        Case{"Two", 2}, Case{"One\\Two\\Three", 2}})
    EXPECT_EQ(c.lResult, Open(base_, c.sPath)) << c.sPath;
  EXPECT_EQ(RegistryInvalidHandle, Open(RegistryKey::None, "SOFTWARE"));
  EXPECT_EQ(RegistrySuccess, Open(RegistryKey::LocalMachine, ""));
}

TEST_P(RegistryContract, CreatingKeepsWhatExists) {
  Set(base_, "kept", "x");
  const RegistryKey hAgain = Create(RegistryKey::LocalMachine, Base);
  EXPECT_NE(base_, hAgain);
  EXPECT_EQ("x", Get(hAgain, "kept"));
  registry_->CloseKey(hAgain);
  EXPECT_EQ("<6>", Get(hAgain, "kept"));
}

TEST_P(RegistryContract, ValuesKeepTheirBytes) {
  const Texts datas = {"",
                       "2.1",
                       std::string("2.1\0", 4),
                       std::string("\0a\0\0", 4),
                       "\x80\x81\xE4\xFF\r\n\t\"\\",
                       std::string(255, 'x')};
  for (const std::uint32_t lType : {RegistryTypeText, 3U})
    for (const std::string& sData : datas) {
      EXPECT_EQ(RegistrySuccess, Set(base_, "Name \"\xE4\\", sData, lType));
      EXPECT_EQ(sData, Get(base_, "nAME \"\xC4\\")) << lType << ": " << sData;
    }
  std::array<char, 254> small{};
  std::uint32_t lSize = 254;
  EXPECT_EQ(RegistryMoreData, registry_->QueryValue(base_, "Name \"\xE4\\", small.data(), lSize));
  EXPECT_EQ(255U, lSize);
  EXPECT_EQ("<2>", Get(base_, ""));
  Set(base_, "", "unnamed");
  EXPECT_EQ("unnamed", Get(base_, ""));
}

TEST_P(RegistryContract, EnumerationIsInOrderAndEnds) {
  for (const char* sName : {"beta", "Alpha", "GAMMA", "alpha"})
    registry_->CloseKey(Create(base_, sName));
  EXPECT_EQ((Texts{"Alpha", "beta", "GAMMA"}), Keys(base_));
  std::array<char, 8> name{};
  EXPECT_EQ(RegistryNoMoreItems, registry_->EnumKey(base_, 3, name.data(), 8));
  EXPECT_EQ(RegistryMoreData, registry_->EnumKey(base_, 0, name.data(), 5));
  EXPECT_EQ(RegistrySuccess, registry_->EnumKey(base_, 0, name.data(), 6));
}

TEST_P(RegistryContract, ValuesEnumerateAsCreated) {
  for (const char* sName : {"b", "gone", "A"}) Set(base_, sName, std::string(sName) + "!");
  Set(base_, "B", "new");
  EXPECT_EQ(RegistrySuccess, registry_->DeleteValue(base_, "GONE"));
  EXPECT_EQ(RegistryNotFound, registry_->DeleteValue(base_, "GONE"));
  std::array<char, 8> name{};
  std::array<char, 8> data{};
  const auto enumerate = [&](std::uint32_t lIndex, std::uint32_t lName, std::uint32_t lData) {
    const std::int32_t lResult =
        registry_->EnumValue(base_, lIndex, name.data(), lName, data.data(), lData);
    return lResult == 0 ? name.data() + ("=" + std::string(data.data(), lData))
                        : std::to_string(lResult);
  };
  EXPECT_EQ("b=new", enumerate(0, 2, 3));
  EXPECT_EQ("A=A!", enumerate(1, 8, 8));
  EXPECT_EQ("259", enumerate(2, 8, 8));
  EXPECT_EQ("234", enumerate(0, 1, 8));  // the name's buffer lacks the place for its NUL
  EXPECT_EQ("234", enumerate(0, 8, 2));
}

TEST_P(RegistryContract, DeletedKeysLeaveTheirHandlesBehind) {
  const RegistryKey hKey = Create(base_, "Parent\\Child");
  EXPECT_EQ(RegistryAccessDenied, registry_->DeleteKey(base_, "Parent"));
  EXPECT_EQ(RegistrySuccess, registry_->DeleteKey(base_, "PARENT\\Child"));
  EXPECT_EQ(RegistryNotFound, registry_->DeleteKey(base_, "Parent\\Child"));
  EXPECT_EQ("<1018>", Get(hKey, "x"));
  EXPECT_EQ(RegistryKeyDeleted, Set(hKey, "x", "y"));
  EXPECT_EQ(RegistryKeyDeleted, Open(hKey, ""));
  EXPECT_EQ(RegistrySuccess, registry_->CloseKey(hKey));
  EXPECT_EQ(RegistrySuccess, registry_->DeleteKey(base_, "Parent"));
}

TEST_P(RegistryContract, DefaultsEndWithTheirNul) {
  const RegistryKey hKey = Create(base_, "Key");
  for (const std::string& sData : Texts{"", "text", std::string("text\0", 5)}) {
    if (!sData.empty()) Set(hKey, "", sData);
    const std::int32_t lNeeded = sData.empty() ? 1 : 5;
    std::array<char, 8> buffer{'?', '?', '?', '?', '?', '?'};
    std::int32_t lSize = lNeeded;
    EXPECT_EQ(RegistrySuccess, registry_->QueryDefault(base_, "key", buffer.data(), lSize));
    EXPECT_EQ(lNeeded, lSize);
    EXPECT_STREQ(sData.c_str(), buffer.data());
    lSize = lNeeded - 1;
    EXPECT_EQ(RegistryMoreData, registry_->QueryDefault(base_, "key", buffer.data(), lSize));
  }
  std::int32_t lSize = 0;
  EXPECT_EQ(RegistryNotFound, registry_->QueryDefault(base_, "missing", nullptr, lSize));
  registry_->CloseKey(hKey);
}

TEST(MemoryRegistry, PathsAreReadAsWindowsDoes) {
  MemoryRegistry registry;
  registry.SetText("HKEY_LOCAL_MACHINE\\A\\B", "", "x");
  RegistryKey hKey = RegistryKey::None;
  const auto open = [&](const std::string& sPath) {
    return registry.OpenKey(RegistryKey::LocalMachine, sPath, RegistryReadWrite, hKey);
  };
  EXPECT_EQ(RegistryBadPath, open("\\A"));
  EXPECT_EQ(RegistrySuccess, open("A\\\\B\\\\"));
  EXPECT_EQ(RegistrySuccess, open(std::string("A\0B", 3)));
  EXPECT_EQ(2U, registry.OpenHandles());
  EXPECT_EQ(RegistryInvalidParameter, open(std::string(256, 'k')));
  std::string sDeep = "x";
  while (sDeep.size() < 2 * 512) sDeep += "\\x";
  EXPECT_EQ(RegistryInvalidParameter,
            registry.CreateKey(RegistryKey::LocalMachine, sDeep, RegistryReadWrite, hKey));
  EXPECT_EQ(RegistryAccessDenied, registry.DeleteKey(RegistryKey::LocalMachine, ""));
}

TEST(MemoryRegistry, FaultsRefuseWhatTheyName) {
  const std::string sPath = "HKEY_LOCAL_MACHINE\\Parent";
  MemoryRegistry registry;
  registry.SetText(sPath + "\\Key", "A", "1");
  RegistryKey hKey = RegistryKey::None;
  RegistryKey hNew = RegistryKey::None;
  registry.OpenKey(RegistryKey::LocalMachine, "Parent\\Key", RegistryReadWrite, hKey);
  registry.RefuseAccess(sPath + "\\key");
  registry.RefuseCreation(sPath + "\\key");
  registry.RefuseDeletion(sPath + "\\key");
  registry.RefuseValue("A");
  EXPECT_EQ(RegistryAccessDenied, registry.OpenKey(hKey, "", RegistryReadWrite, hNew));
  EXPECT_EQ(RegistryAccessDenied, registry.CreateKey(hKey, "New", RegistryReadWrite, hNew));
  EXPECT_EQ(RegistryAccessDenied, registry.DeleteKey(hKey, ""));
  EXPECT_EQ(RegistryAccessDenied, registry.SetValue(hKey, "a", 1, "x", 1));
  EXPECT_EQ(RegistrySuccess, registry.OpenKey(hKey, "", 0x20019, hNew));  // KEY_READ
  EXPECT_EQ(RegistryAccessDenied, registry.SetValue(hNew, "B", 1, "x", 1));
  EXPECT_EQ("1", registry.Text(sPath + "\\Key", "a"));
  registry.ClearFaults();
  EXPECT_EQ(RegistrySuccess, registry.DeleteKey(hKey, ""));
}

}  // namespace

}  // namespace trelin
