#include "shared/memory_registry.h"

#include <algorithm>
#include <random>

#include "shared/code_page.h"
#include "tests/shared/registry_contract.h"

namespace trelin {

namespace {

using Texts = std::vector<std::string>;

constexpr std::uint32_t ReadOnly = 0x20019;  // KEY_READ

INSTANTIATE_TEST_SUITE_P(Of, RegistryContract, testing::Values("Memory", "Platform"));

TEST_P(RegistryContract, PathsFindKeysAndCreatingKeepsThem) {
  const RegistryKey hKey = Create(registry_, base_, "One\\Two");
  Set(registry_, hKey, "kept", "x");
  const RegistryKey hOther = Create(registry_, base_, "oNE\\TWO\\");
  EXPECT_NE(hKey, hOther);
  EXPECT_EQ("x", Get(registry_, hOther, "kept"));
  registry_.CloseKey(hOther);
  EXPECT_EQ("<6>", Get(registry_, hOther, "kept")) << "a closed handle";
  EXPECT_EQ(RegistryInvalidHandle, Set(registry_, hOther, "kept", "y"));
  EXPECT_EQ(RegistryInvalidHandle, registry_.CloseKey(hOther));
  EXPECT_EQ("x", Get(registry_, hKey, "kept")) << "the other handle of the key";
  const struct {
    RegistryKey hParent;
    const char* sPath;
    std::int32_t lResult;
  } cases[] = {
      // First, as the system may use the closed handle's number again.
      {hOther, "", 6},          {hOther, "One\\Two", 6}, {RegistryKey::None, "", 6},
      {base_, "one\\two\\", 0}, {base_, "Two", 2},       {base_, "One\\Two\\Three", 2},
      {base_, "\\One", 161},    {hKey, "", 0},           {RegistryKey::ClassesRoot, "\\", 0},
  };
  for (const auto& c : cases) {
    RegistryKey hOpened = RegistryKey::None;
    EXPECT_EQ(c.lResult, registry_.OpenKey(c.hParent, c.sPath, ReadOnly, hOpened)) << c.sPath;
    EXPECT_EQ(c.lResult == 0 ? 0 : 6, registry_.CloseKey(hOpened));
  }
  RegistryKey hHive = RegistryKey::None;
  EXPECT_EQ(0, registry_.OpenKey(Hive, "", RegistryReadWrite, hHive));
  EXPECT_EQ(Hive, hHive);
  registry_.CloseKey(hKey);
}

TEST_P(RegistryContract, ValuesKeepTheirBytes) {
  EXPECT_EQ(RegistrySuccess, Set(registry_, base_, std::string(16383, 'n'), "x"));
  EXPECT_EQ(RegistryInvalidParameter, Set(registry_, base_, std::string(16384, 'n'), "x"));
  for (const std::string& sData :
       Texts{"", "2.1", std::string("2.1\0", 4), std::string("\0a\0\0", 4),
             "\x80\x81\xE4\xFF\r\n\t\"\\", std::string(255, 'x')})
    for (const std::uint32_t lType : {1U, 3U}) {
      EXPECT_EQ(RegistrySuccess, Set(registry_, base_, "Name \"\xE4\\", sData, lType));
      EXPECT_EQ(sData, Get(registry_, base_, "nAME \"\xC4\\")) << lType;
    }
  EXPECT_EQ("<234>", Get(registry_, base_, "Name \"\xE4\\", 254));
  EXPECT_EQ("<2>", Get(registry_, base_, ""));
  Set(registry_, base_, "", "unnamed");
  EXPECT_EQ("unnamed", Get(registry_, base_, ""));
}

TEST_P(RegistryContract, ReadingDoesNotGiveTheRightToWriteValues) {
  RegistryKey hKey = RegistryKey::None;
  EXPECT_EQ(0, registry_.OpenKey(base_, "", ReadOnly, hKey));
  EXPECT_EQ(RegistryAccessDenied, Set(registry_, hKey, "x", "y"));
  EXPECT_EQ(RegistryAccessDenied, registry_.DeleteValue(hKey, "x"));
  registry_.CloseKey(Create(registry_, hKey, "Subkey"));
  EXPECT_EQ(0, registry_.DeleteKey(hKey, "Subkey"));
  registry_.CloseKey(hKey);
}

TEST_P(RegistryContract, EnumeratesEachKeyAndValueOnce) {
  PutTree(registry_, base_, "b=b [beta] [Alpha] [GAMMA] [alpha]");
  std::array<char, 8> name{}, data{};
  EXPECT_EQ(234, registry_.EnumKey(base_, 0, name.data(), 4));
  EXPECT_EQ(259, registry_.EnumKey(base_, 3, name.data(), 8));

  const auto value = [&](std::uint32_t lIndex, std::uint32_t lName, std::uint32_t lData) {
    return registry_.EnumValue(base_, lIndex, name.data(), lName, data.data(), lData);
  };
  EXPECT_EQ(0, value(0, 2, 1));
  EXPECT_EQ(234, value(0, 1, 8)) << "the name's buffer lacks the place for its NUL";
  EXPECT_EQ(234, value(0, 8, 0));
  PutTree(registry_, base_, "gone=gone A=A B=B");
  EXPECT_EQ(RegistrySuccess, registry_.DeleteValue(base_, "GONE"));
  EXPECT_EQ(RegistryNotFound, registry_.DeleteValue(base_, "GONE"));
  EXPECT_EQ(259, value(2, 8, 8));
  EXPECT_EQ("A=A b=B [Alpha ] [beta ] [GAMMA ]", TreeOf(registry_, base_));
}

TEST_P(RegistryContract, DeletedKeysLeaveTheirHandlesBehind) {
  const RegistryKey hKey = Create(registry_, base_, "Parent\\Child");
  EXPECT_EQ(RegistryAccessDenied, registry_.DeleteKey(base_, "Parent"));
  EXPECT_EQ(RegistrySuccess, registry_.DeleteKey(base_, "PARENT\\Child"));
  EXPECT_EQ(RegistryNotFound, registry_.DeleteKey(base_, "Parent\\Child"));
  EXPECT_EQ("<1018>", Get(registry_, hKey, "x"));
  EXPECT_EQ(RegistryKeyDeleted, Set(registry_, hKey, "x", "y"));
  EXPECT_EQ(RegistrySuccess, registry_.CloseKey(hKey));
}

TEST_P(RegistryContract, DefaultsEndWithTheirNul) {
  const RegistryKey hKey = Create(registry_, base_, "Key");
  for (const std::string& sData : Texts{"", "text", std::string("text\0", 5)}) {
    if (!sData.empty()) Set(registry_, hKey, "", sData);
    const std::int32_t lNeeded = sData.empty() ? 1 : 5;
    std::string sBuffer = "??????";
    std::int32_t lSize = lNeeded;
    EXPECT_EQ(RegistrySuccess, registry_.QueryDefault(base_, "key", sBuffer.data(), lSize));
    EXPECT_EQ(lNeeded, lSize);
    EXPECT_STREQ(sData.c_str(), sBuffer.c_str());
    lSize = lNeeded - 1;
    EXPECT_EQ(RegistryMoreData, registry_.QueryDefault(base_, "key", sBuffer.data(), lSize));
  }
  registry_.CloseKey(hKey);
}

TEST(RegistryNode, ValuesAreFoundWhateverCameAndWent) {
  std::mt19937 random(20261126);
  RegistryNode node;
  std::vector<std::pair<std::string, std::uint32_t>> model;
  for (std::uint32_t lStep = 0; lStep < 3000; ++lStep) {
    const std::string sName = "Name" + std::to_string(random() % 200);
    const auto known = std::find_if(model.begin(), model.end(),
                                    [&sName](const auto& value) { return value.first == sName; });
    const bool bKnown = known != model.end();
    if (random() % 3 == 0) {
      EXPECT_EQ(bKnown, node.RemoveValue(sName)) << lStep;
      if (bKnown) model.erase(known);
    } else {
      node.SetValue(bKnown ? UpperCase1252(sName) : sName, lStep, sName);
      (bKnown ? *known : model.emplace_back(sName, 0)).second = lStep;
    }
    const std::string sOther = "nAME" + std::to_string(random() % 200);
    const bool bThere = std::any_of(model.begin(), model.end(), [&sOther](const auto& value) {
      return UpperCase1252(value.first) == UpperCase1252(sOther);
    });
    ASSERT_EQ(bThere, node.FindValue(sOther) != nullptr) << lStep;
  }
  ASSERT_EQ(model.size(), node.AllValues().size());
  for (std::size_t n = 0; n < model.size(); ++n) {
    EXPECT_EQ(model[n].first, node.Value(n).sName);
    EXPECT_EQ(model[n].second, node.FindValue(model[n].first)->lType);
  }
}

}  // namespace

}  // namespace trelin
