#include "suite/reg_entry.h"

#include "testing/program_test.h"
#include "tests/shared/registry_contract.h"

namespace trelin {
namespace {

using namespace std::literals;
using Texts = std::vector<std::string>;

const std::string sSuiteKey = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\";

class RegEntryTest : public ProgramTest {
 protected:
  RegEntryTest() { objReg.CreateKey("Values"); }
  ~RegEntryTest() override { EXPECT_EQ(registry.OpenHandles(), 1U); }

  RegEntry objReg;
};

TEST_F(RegEntryTest, CreatesEveryMissingLevelAndKeepsWhatIsThere) {
  objReg.SetString("kept", "x");
  objReg.CreateKey("Values\\B\\C");
  objReg.SetString("deep", "y");
  objReg.OpenKey("Values");
  EXPECT_EQ(objReg.GetString("kept"), "x");
  objReg.SetDefaultRoot("SOFTWARE");
  EXPECT_EQ(objReg.GetString("kept"), "x") << "the open key stays";
  objReg.OpenKey("Korvanta\\Values\\B\\C");
  EXPECT_EQ(objReg.GetString("deep"), "y");
}

TEST_F(RegEntryTest, WhatDoesNotOpenIsNamedAndLeavesNoKeyOpen) {
  objReg.CreateKey("ReadOnly");
  registry.RefuseAccess(sSuiteKey + "ReadOnly");
  registry.RefuseCreation(sSuiteKey + "Values");
  const struct {
    void (RegEntry::*call)(const std::string&);
    const char *sKey, *sFailure;
  } cases[] = {
      {&RegEntry::OpenKey, "B", "5001 RegEntry.OpenInternal 35001(SOFTWARE\\Korvanta\\B)"},
      {&RegEntry::OpenKey, "ReadOnly",
       "5001 RegEntry.OpenInternal 35001(SOFTWARE\\Korvanta\\ReadOnly)"},
      {&RegEntry::CreateKey, "ReadOnly", "5000 RegEntry.CreateInternal 35001(ReadOnly)"},
      {&RegEntry::CreateKey, "ReadOnly\\B", "5000 RegEntry.CreateInternal 35002(ReadOnly)"},
      {&RegEntry::CreateKey, "Values\\B\\C", "5000 RegEntry.CreateInternal 35002(B)"},
      {&RegEntry::CreateKey, "Values\\B", "5000 RegEntry.CreateInternal 35001(B)"},
  };
  for (const auto& c : cases) {
    objReg.OpenKey("Values");
    EXPECT_EQ(Failure([&] { (objReg.*c.call)(c.sKey); }), c.sFailure);
    EXPECT_FALSE(objReg.TestKey(c.sKey)) << c.sKey;
    objReg.SetString("x", "y");
    objReg.DeleteValue("x");
    EXPECT_EQ(objReg.GetString("x"), "") << "no key is open after " << c.sFailure;
    EXPECT_FALSE(objReg.GetBoolean("x")) << c.sKey;
  }
  EXPECT_TRUE(objReg.TestKey("Values"));
  objReg.OpenKey("Values");
  EXPECT_EQ(objReg.GetString("x"), "") << "nothing was written";
}

TEST_F(RegEntryTest, ValuesAreTextsOfAtMost255BytesAndBooleansAreWords) {
  const struct {
    std::string sData, sText;
    bool bValue = true;
  } cases[] = {
      {"abc\0"s, "abc"},
      {"abc\0\0"s, "abc\0"s},
      {"\0"s, "", false},
      {" a ", " a "},
      {std::string(255, 'x'), std::string(255, 'x')},
      {std::string(256, 'x'), "", false},
      {"TRUE", "TRUE"},
      {"1", "1"},
      {" 0", " 0"},
      {"0", "0", false},
      {"no", "no", false},
      {"False", "False", false},
      {"", "", false},  // deletes it
  };
  for (const auto& c : cases) {
    objReg.SetString("v", c.sData);
    EXPECT_EQ(objReg.GetString("V"), c.sText) << testing::PrintToString(c.sData);
    EXPECT_EQ(objReg.GetBoolean("V"), c.bValue) << testing::PrintToString(c.sData);
  }
  objReg.SetBoolean("b", true);
  objReg.SetBoolean("c", false);
  EXPECT_EQ(TreeOf(registry, Hive), "[SOFTWARE [Korvanta [Values b=true c=false]]]");
  registry.RefuseValue("refused");
  EXPECT_EQ(Failure([&] { objReg.SetString("refused", "x"); }),
            "5002 RegEntry.SetValue 35003(refused)");
  objReg.SetString("refused", "");
  EXPECT_EQ(objReg.GetString("c"), "false") << "the key stays open";
}

// The other operations are the launcher's, whose calls fail in fault_test.cpp.
TEST_F(RegEntryTest, ARegistryThatCannotBeReadIsNotTakenForAnEmptyOne) {
  faults.nFailing = faults.calls.size() + 1;
  faults.cKind = Faults::Broken;
  faults.reach = Faults::Reach::Everything;
  EXPECT_TRUE(Failure([&] { objReg.DeleteValue("v"); }).ends_with(": it is broken."));
  EXPECT_TRUE(Failure([&] { objReg.Copy("B"); }).ends_with(": it is broken."));
  EXPECT_TRUE(Failure([&] { objReg.DeleteKey("B"); }).ends_with(": it is broken."));
}

// What only a registry that tests control refuses.
TEST_F(RegEntryTest, ErrorsOfTreesNameTheSubkey) {
  using R = MemoryRegistry;
  const std::string sAll = "[S [A v=1 w=2] [B [C v=1]] [D v=1]]";
  const struct {
    void (R::*refuse)(const std::string&);
    std::string sRefused, sDeleted, sFailure, sAfter;  // without a deleted key, S is copied to T
  } cases[] = {
      {&R::RefuseAccess, sSuiteKey + "S\\B\\C", "", "5001 RegEntry.CopyInternal 35001(C)",
       sAll + " [T [A v=1 w=2] [B ]]"},
      {&R::RefuseCreation, sSuiteKey + "T\\B", "", "5000 RegEntry.CopyInternal 35002(C)",
       sAll + " [T [A v=1 w=2] [B ]]"},
      {&R::RefuseValue, "v", "", "none", sAll + " [T [A w=2] [B [C ]] [D ]]"},
      {&R::RefuseAccess, sSuiteKey + "S\\B\\C", "S", "5001 RegEntry.CopyInternal 35001(C)",
       "[S [B [C v=1]] [D v=1]]"},
      {&R::RefuseDeletion, sSuiteKey + "S\\D", "S\\D", "none", sAll},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.sRefused + " refused: " + c.sFailure);
    RegEntry::DeleteInternal(Hive, "SOFTWARE");
    PutTree(registry, Hive, "[SOFTWARE [Korvanta " + sAll + "]]");
    (registry.*c.refuse)(c.sRefused);
    objReg.OpenKey(c.sDeleted.empty() ? "S" : "");
    const auto call = [&] { c.sDeleted.empty() ? objReg.Copy("T") : objReg.DeleteKey(c.sDeleted); };
    EXPECT_EQ(Failure(call), c.sFailure);
    EXPECT_EQ(registry.OpenHandles(), 1U);
    registry.ClearFaults();
    EXPECT_EQ(TreeOf(registry, Hive), "[SOFTWARE [Korvanta " + c.sAfter + "]]");
  }
}

TEST_F(RegEntryTest, ARemovalLetsNoFaultOut) {
  bool bFailed = true;
  for (std::size_t n = 1; bFailed; ++n) {
    faults = {};
    PutTree(registry, RegistryKey::ClassesRoot,
            "[P [Clsid =C]] [CLSID [C [TypeLib =L]]] [TypeLib [L [Sub v=1]]]");
    faults.calls.clear();
    faults.nFailing = n;
    faults.cKind = Faults::Broken;
    EXPECT_NO_THROW(RegEntry::RemoveProgID("P")) << "call " << n;
    bFailed = faults.calls.size() >= n;
    EXPECT_EQ(registry.OpenHandles(), 1U) << "call " << n;
  }
}

// Names without a NUL, and lists without an end.
class EndlessRegistry : public MemoryRegistry {
  std::int32_t EnumKey(RegistryKey, std::uint32_t lIndex, char* pName, std::uint32_t) override {
    const std::string sName = lIndex == 1 ? std::string(256, 'x') : "Key";
    sName.copy(pName, sName.size());
    return RegistrySuccess;
  }
  std::int32_t EnumValue(RegistryKey, std::uint32_t, char*, std::uint32_t& lNameSize, char*,
                         std::uint32_t& lDataSize) override {
    lNameSize = lDataSize = 0;
    return RegistrySuccess;
  }
};

TEST_F(ProgramTest, EndlessListsGiveZero) {
  EndlessRegistry endless;
  const PlatformScope ofEndless({&endless, &libraries, &system});
  RegEntry objReg;
  objReg.CreateKey("A");
  Texts keys;
  EXPECT_EQ(objReg.Query(keys), 0);
  EXPECT_EQ(keys, Texts(32767, "Key")) << "as far as 16 bits count, without the one";
  EXPECT_EQ(system.messages, (std::vector<ShownMessage>{{"No ending 0 found", MessageIcon::None,
                                                         MessageButtons::Ok, ""}}));
  RegEntry::ValueArray values;
  EXPECT_EQ(objReg.QueryValues(values), 0);
  EXPECT_EQ(values[2].size(), 32768U) << "filled as far as 16 bits count";
}

TEST_F(RegEntryTest, ALanguagesOwnValueComesFirst) {
  objReg.SetString("Title", "for all");
  EXPECT_EQ(objReg.GetStringInternational("Title", 1033), "for all");
  objReg.SetString("ENUTitle", "English");
  EXPECT_EQ(objReg.GetStringInternational("Title", 1033), "English");
  EXPECT_EQ(objReg.GetStringInternational("Title", 1031), "for all");
}

}  // namespace
}  // namespace trelin
