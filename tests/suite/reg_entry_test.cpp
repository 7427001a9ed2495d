#include "suite/reg_entry.h"

#include "testing/program_test.h"
#include "tests/shared/registry_contract.h"

namespace trelin {
namespace {

using namespace std::literals;
using Texts = std::vector<std::string>;

constexpr RegistryKey Classes = RegistryKey::ClassesRoot;
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
    PutTree(registry, Classes, "[P [Clsid =C]] [CLSID [C [TypeLib =L]]] [TypeLib [L [Sub v=1]]]");
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
    std::string(lIndex == 1 ? 256 : 3, 'x').copy(pName, 256);
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
  EXPECT_EQ(keys, Texts(32767, "xxx")) << "as far as 16 bits count, without the one";
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

// A name that does not fit into the accessor's buffer: the key with it is
// never found by an enumeration, and its parent cannot be deleted.
const std::string sUnseen(255, 'u');

// The accessor's operations on trees, on every Registry; its root is the contract's key.
class RegistryTrees : public RegistryContract, protected FakePlatform {
 protected:
  RegistryTrees() { objReg.SetDefaultRoot(Base); }

  // What is in the key; "none" for no key.
  std::string Tree(const std::string& sPath, RegistryKey hParent) {
    const KeyHandle key = TryOpen(hParent, sPath);
    return key.IsOpen() ? TreeOf(registry_, key.Get()) : "none";
  }

  const PlatformScope ofContract{{&registry_, &libraries, &system}};
  RegEntry objReg;
};

INSTANTIATE_TEST_SUITE_P(Of, RegistryTrees, testing::Values("Memory", "Platform"));

TEST_P(RegistryTrees, ACopyIsOfTextsAndKeepsWhatTheDestinationHas) {
  const std::string sFits = "a=" + std::string(255, 'x');
  const struct {
    const char* sCase;
    std::string sSource, sTarget, sCopy;
    std::uint32_t lType = RegistryTypeText;
  } cases[] = {
      {"nothing there", "=d a=1 [B v=2 [C v=3]] [D v=4]", "", "=d a=1 [B v=2 [C v=3]] [D v=4]"},
      {"other keys there", "a=1 [B [C v=3]] [D v=4]", "[T [U A=0 k=5 [b k=6]]]",
       "A=1 k=5 [b k=6 [C v=3]] [D v=4]"},
      {"a text with its NUL", {"a=1\0", 4}, "", {"a=1\0", 4}},
      {"numbers", {"a=\1\0\2\0", 6}, "", {"a=\1\0\2\0", 6}, 4},  // REG_DWORD
      {"values up to one too long", sFits + " b=" + std::string(256, 'x') + " c=1 [D v=4]", "",
       sFits + " [D v=4]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.sCase);
    PutTree(registry_, base_, "[S " + c.sSource + "]", c.lType);
    PutTree(registry_, base_, c.sTarget);
    objReg.OpenKey("S");
    objReg.Copy("T\\U");
    EXPECT_EQ(Tree("T\\U", base_), c.sCopy);
    EXPECT_EQ(Tree("S", base_), c.sSource);
    EXPECT_NE(objReg.GetString("a"), "") << "the current key stays";
    for (const char* sKey : {"S", "T"}) Clear(base_, sKey);
  }
}

TEST_P(RegistryTrees, ACopyIntoItselfIsRefusedBeforeAnythingIsWritten) {
  PutTree(registry_, base_, "[Source [Sub v=1]]");
  objReg.SetDefaultRoot("");
  objReg.CreateKey(std::string(Base) + "\\source\\");
  objReg.SetDefaultRoot(Base);
  for (const std::string& sName :
       {"Source"s, "SOURCE\\"s, "\\Source"s, "Source\0x"s, "Source\\Sub"s, "Source\\\\New\\Key"s})
    EXPECT_EQ(Failure([&] { objReg.Copy(sName); }),
              "5000 RegEntry.CopyInternal 35002(" + sName + ")");
  EXPECT_EQ(Tree("", base_), "[Source [Sub v=1]]");
}

TEST_P(RegistryTrees, DeletesDepthFirstUpToWhatStays) {
  const std::string sStuck = "[Stuck [" + sUnseen + " v=1]] [Z v=1]";
  const struct {
    std::string sBefore, sKey, sFailure, sAfter;
  } cases[] = {
      {"[G [A v=1] [B v=1 [C v=1]]] [G2 v=1]", "g", "none", "[G2 v=1]"},
      {"[G2 v=1]", "G", "5001 RegEntry.CopyInternal 35001(G)", "[G2 v=1]"},
      {"[P [A [Deep v=1]] " + sStuck + "]", "P", "5001 RegEntry.CopyInternal 35001(Stuck)",
       "[P " + sStuck + "]"},
  };
  for (const auto& c : cases) {
    PutTree(registry_, base_, c.sBefore);
    objReg.OpenKey("");
    EXPECT_EQ(Failure([&] { objReg.DeleteKey(c.sKey); }), c.sFailure);
    EXPECT_EQ(Tree("", base_), c.sAfter);
    Clear(base_, "G2");
  }
}

TEST_P(RegistryTrees, ListsKeysAndValues) {
  Texts keys{"before"};
  RegEntry::ValueArray values;
  const RegEntry::ValueArray none{{{""}, {""}, {""}}};
  EXPECT_EQ(objReg.Query(keys), 0) << "no key is open";
  EXPECT_EQ(Failure([&] { objReg.Copy("List"), objReg.DeleteKey("List"); }), "none");
  EXPECT_EQ(objReg.QueryValues(values), 0);
  EXPECT_EQ(values, none);

  PutTree(registry_, base_, "[List [A v=1] [B v=1]]");
  objReg.OpenKey("List\\A");
  EXPECT_EQ(objReg.Query(keys), 1) << "no subkeys, but what the collection held";
  objReg.OpenKey("List");
  EXPECT_EQ(objReg.Query(keys), 3);
  EXPECT_EQ(keys, (Texts{"before", "A", "B"}));
  values[1].assign(9, "old");
  EXPECT_EQ(objReg.QueryValues(values), 0);
  EXPECT_EQ(values, none);

  PutTree(registry_, base_, "[List A=x\0\0 B=\0 C=y\0z]"sv);
  EXPECT_EQ(objReg.QueryValues(values), 3);
  EXPECT_EQ(values,
            (RegEntry::ValueArray{{{"A", "B", "C", ""}, {"x", "", "y\0z"s, ""}, Texts(4)}}));
  PutTree(registry_, base_, "[List D=" + std::string(256, 'x') + " E=behind]");
  EXPECT_EQ(objReg.QueryValues(values), 3);
  keys.resize(32765);
  EXPECT_EQ(objReg.Query(keys), 32767);
  keys.resize(32766);
  EXPECT_EQ(objReg.Query(keys), 0) << "one more than 16 bits count";
}

TEST_P(RegistryTrees, RemovesTheRegistrationOfAComponent) {
  const std::pair<char, std::string> keys[] = {
      {'P', "Trelin.Test.P"}, {'C', "CLSID\\Trelin.Test.C"}, {'L', "TypeLib\\Trelin.Test.L"}};
  const std::string sClass = "[Clsid =Trelin.Test.C]", sLibrary = "[TypeLib =Trelin.Test.L]";
  const struct {
    const char* sCase;
    std::string sClass, sLibrary;  // what leads on, in the identifier and in the class
    char cStuck;                   // cannot be deleted
    const char* sLeft;
  } cases[] = {
      {"all three", sClass, sLibrary, 0, ""},
      {"the class has no library", sClass, "", 0, "CL"},
      {"the identifier has no class", "", sLibrary, 0, "PCL"},
      {"an unknown class", "[Clsid =Trelin.Test.X]", sLibrary, 0, "CL"},
      {"the identifier stays", sClass, sLibrary, 'P', "P"},
      {"the class stays", sClass, sLibrary, 'C', "C"},
      {"a library without a name", sClass, "[TypeLib =\0\0]"s, 0, "L"},
  };
  for (const auto& c : cases) {
    PutTree(registry_, Classes,
            "[Trelin.Test.P v=1 " + c.sClass + "] [CLSID [Trelin.Test.C v=1 " + c.sLibrary +
                "]] [TypeLib [Trelin.Test.L v=1]]");
    for (const auto& [cKey, sKey] : keys)
      if (cKey == c.cStuck) PutTree(registry_, Classes, "[" + sKey + " [Stuck [" + sUnseen + "]]]");

    RegEntry::RemoveProgID("Trelin.Test.Nobody");
    RegEntry::RemoveProgID("Trelin.Test.P");
    std::string sLeft;
    for (const auto& [cKey, sKey] : keys)
      if (Tree(sKey, Classes) != "none") sLeft += cKey;
    EXPECT_EQ(sLeft, c.sLeft) << c.sCase;
    for (const auto& [cKey, sKey] : keys) Clear(Classes, sKey);
  }
}

// Nor to what the default value of the hive's own key "Clsid" leads. A deletion
// of the hive would end at its first key, which stays.
TEST_P(RegistryTrees, ANameOfBackslashesAloneLeadsToNothing) {
  const std::string sFirst = "!Trelin.Test", sClass = "CLSID\\Trelin.Test.Class";
  PutTree(registry_, Classes,
          "[" + sFirst + " [" + sUnseen + " v=1] [Sub v=1]] " +
              "[CLSID =Trelin.Test.Class [Trelin.Test.Class [TypeLib v=1]]]");
  ASSERT_EQ(KeysOf(registry_, Classes).front(), sFirst);
  for (const std::string& sName : {""s, "\\"s, "\\\\"s, "\\\0x"s}) {
    EXPECT_EQ(Failure([&] { RegEntry::DeleteInternal(Classes, sName); }),
              "5001 RegEntry.CopyInternal 35001(" + sName + ")");
    RegEntry::RemoveProgID(sName);
  }
  EXPECT_EQ(Tree(sFirst + "\\Sub", Classes), "v=1");
  EXPECT_EQ(Tree(sClass, Classes), "[TypeLib v=1]");
  registry_.DeleteValue(TryOpen(Classes, "CLSID").Get(), "");
  for (const std::string& sKey : {sFirst, sClass}) Clear(Classes, sKey);
}

}  // namespace
}  // namespace trelin
