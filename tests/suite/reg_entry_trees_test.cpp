#include "tests/suite/registry_trees.h"

namespace trelin {
namespace {

using Texts = std::vector<std::string>;

constexpr RegistryKey Classes = RegistryKey::ClassesRoot;

// A name that does not fit into the accessor's buffer: the key with it is
// never found by an enumeration, and its parent cannot be deleted.
const std::string sUnseen(255, 'u');

TEST_P(RegistryTrees, ACopyIsOfTextsAndKeepsWhatTheDestinationHas) {
  const std::string sNumber("\x01\0\x02\0", 4);
  Put("Source", "", "default");
  Put("Source", "Number", sNumber, base_, 4);  // REG_DWORD
  Put("Source", "Text", std::string("new\0", 4));
  Put("Source\\Sub\\Deep", "v", "1");
  Put("Source\\Sub2", "v", "2");
  Put("Target\\There", "Own", "kept");
  Put("Target\\There", "TEXT", "old");
  Put("Target\\There\\sub", "Own", "kept");
  objReg.OpenKey("Source");
  objReg.Copy("Target\\There");
  EXPECT_EQ(Tree("Target\\There"), "=default Number=" + sNumber +
                                       " Own=kept TEXT=" + std::string("new\0", 4) +
                                       " [Sub2 v=2] [sub Own=kept [Deep v=1]]");
  objReg.Copy("Source2\\New");
  EXPECT_EQ(Tree("Source2\\New"), Tree("Source"));
  EXPECT_EQ(objReg.GetString("Text"), "new") << "the current key stays";
}

TEST_P(RegistryTrees, AValueTooLongForTheBufferEndsTheValuesOfACopy) {
  Put("Source", "a", std::string(255, 'x'));
  Put("Source", "b", std::string(256, 'x'));
  Put("Source", "c", "left out");
  Put("Source\\Sub", "v", "1");
  objReg.OpenKey("Source");
  objReg.Copy("Target");
  EXPECT_EQ(Tree("Target"), "a=" + std::string(255, 'x') + " [Sub v=1]");
}

TEST_P(RegistryTrees, ACopyIntoItselfIsRefusedBeforeAnythingIsWritten) {
  Put("Source\\Sub", "v", "1");
  const std::string sBefore = Tree("");
  objReg.SetDefaultRoot("");
  objReg.CreateKey(std::string(Base) + "\\source\\");
  objReg.SetDefaultRoot(Base);
  for (const char* sName : {"Source", "SOURCE\\", "\\Source", "Source\\Sub", "Source\\\\New\\Key"})
    EXPECT_EQ(Failure([&] { objReg.Copy(sName); }),
              std::string("5000 RegEntry.CopyInternal 35002(") + sName + ")");
  EXPECT_EQ(Tree(""), sBefore);
}

TEST_P(RegistryTrees, DeletesDepthFirstAndNothingElse) {
  Put("Gone\\Two\\Three", "v", "1");
  Put("Gone\\Too", "v", "1");
  Put("Gone2", "v", "1");
  objReg.OpenKey("");
  objReg.DeleteKey("GONE");
  EXPECT_EQ(Tree(""), "[Gone2 v=1]");
  EXPECT_EQ(Failure([&] { objReg.DeleteKey("Gone"); }), "5001 RegEntry.CopyInternal 35001(Gone)");
  EXPECT_EQ(Tree(""), "[Gone2 v=1]");
}

TEST_P(RegistryTrees, ADeletionEndsAtASubkeyThatStays) {
  Put("Parent\\A\\Deep", "v", "1");
  Put("Parent\\Stuck\\" + sUnseen, "v", "1");
  Put("Parent\\Z", "v", "1");
  objReg.OpenKey("");
  EXPECT_EQ(Failure([&] { objReg.DeleteKey("Parent"); }),
            "5001 RegEntry.CopyInternal 35001(Stuck)");
  EXPECT_NE(Tree("Parent\\Stuck"), "none");
}

TEST_P(RegistryTrees, ListsKeysAndValues) {
  Texts keys{"before"};
  RegEntry::ValueArray values;
  const RegEntry::ValueArray none{{{""}, {""}, {""}}};
  EXPECT_EQ(objReg.Query(keys), 0) << "no key is open";
  EXPECT_EQ(Failure([&] { objReg.Copy("List"), objReg.DeleteKey("List"); }), "none");
  EXPECT_EQ(objReg.QueryValues(values), 0);
  EXPECT_EQ(values, none);

  for (const char* sName : {"List\\A", "List\\B"}) Put(sName, "v", "1");
  objReg.OpenKey("List\\A");
  EXPECT_EQ(objReg.Query(keys), 1) << "no subkeys, but what the collection held";
  objReg.OpenKey("List");
  EXPECT_EQ(objReg.Query(keys), 3);
  EXPECT_EQ(keys, (Texts{"before", "A", "B"}));
  values[1].assign(9, "old");
  EXPECT_EQ(objReg.QueryValues(values), 0);
  EXPECT_EQ(values, none);

  Put("List", "A", std::string("x\0\0", 3));
  Put("List", "B", std::string("\0", 1));
  Put("List", "C", std::string("y\0z", 3));
  EXPECT_EQ(objReg.QueryValues(values), 3);
  EXPECT_EQ(values, (RegEntry::ValueArray{
                        {{"A", "B", "C", ""}, {"x", "", std::string("y\0z", 3), ""}, Texts(4)}}));
  keys.resize(32767);
  EXPECT_EQ(objReg.Query(keys), 0) << "two more than 16 bits count";
  Put("List", "D", std::string(256, 'x'));
  Put("List", "E", "behind it");
  EXPECT_EQ(objReg.QueryValues(values), 3);
}

TEST_P(RegistryTrees, RemovesTheRegistrationOfAComponent) {
  const std::string sPrefix = "Trelin.Test.";  // of the keys in the hive's own keys, too
  const Texts noName{std::string(2, '\0')};
  const struct {
    const char* sCase;
    Texts classDefault, libraryDefault;  // of the keys that lead on; empty: there is none
    const char* sStuck;                  // this key cannot be deleted
    const char *sProgID, *sClass, *sLibrary;
  } cases[] = {
      {"all three", {"Class"}, {"Library"}, "", "none", "none", "none"},
      {"the class has no library", {"Class"}, {}, "", "none", "[Sub v=1]", "[Sub v=1]"},
      {"the identifier has no class", {}, {"Library"}, "", "v=1", "kept", "[Sub v=1]"},
      {"an unknown class", {"Unknown"}, {"Library"}, "", "none", "kept", "[Sub v=1]"},
      {"the identifier stays", {"Class"}, {"Library"}, "Trelin.Test.Prog", "kept", "none", "none"},
      {"the class stays",
       {"Class"},
       {"Library"},
       "CLSID\\Trelin.Test.Class",
       "none",
       "kept",
       "none"},
      {"a library without a name", {"Class"}, noName, "", "none", "none", "[Sub v=1]"},
  };
  for (const auto& c : cases) {
    const auto full = [&](const std::string& s) { return s[0] == 0 ? s : sPrefix + s; };
    Put(sPrefix + "Prog", "v", "1", Classes);
    for (const char* sKey : {"CLSID\\Trelin.Test.Class\\Sub", "TypeLib\\Trelin.Test.Library\\Sub"})
      Put(sKey, "v", "1", Classes);
    for (const auto& s : c.classDefault) Put(sPrefix + "Prog\\Clsid", "", full(s), Classes);
    for (const auto& s : c.libraryDefault)
      Put("CLSID\\" + sPrefix + "Class\\TypeLib", "", full(s), Classes);
    if (*c.sStuck != 0) Put(c.sStuck + ("\\Stuck\\" + sUnseen), "v", "1", Classes);

    RegEntry::RemoveProgID(sPrefix + "Nobody");
    RegEntry::RemoveProgID(sPrefix + "Prog");
    const auto left = [&](const std::string& sKey) {
      const std::string sTree = Tree(sKey, Classes);
      return sTree.size() > 9 ? "kept" : sTree;
    };
    EXPECT_EQ(left(sPrefix + "Prog"), c.sProgID) << c.sCase;
    EXPECT_EQ(left("CLSID\\" + sPrefix + "Class"), c.sClass) << c.sCase;
    EXPECT_EQ(left("TypeLib\\" + sPrefix + "Library"), c.sLibrary) << c.sCase;
    for (const char* sKey :
         {"Trelin.Test.Prog", "CLSID\\Trelin.Test.Class", "TypeLib\\Trelin.Test.Library"})
      Clear(Classes, sKey);
  }
}

// Nor to what the default value of the hive's own key "Clsid" leads. A deletion
// of the hive would end at its first key, which stays.
TEST_P(RegistryTrees, ANameOfBackslashesAloneLeadsToNothing) {
  const std::string sFirst = "!Trelin.Test", sClass = "CLSID\\Trelin.Test.Class";
  for (const std::string& sKey : {sFirst + "\\" + sUnseen, sFirst + "\\Sub", sClass + "\\TypeLib"})
    Put(sKey, "v", "1", Classes);
  Put("CLSID", "", "Trelin.Test.Class", Classes);
  ASSERT_EQ(Keys(Classes).front(), sFirst);
  for (const std::string& sName : Texts{"", "\\", "\\\\", std::string("\\\0x", 3)}) {
    EXPECT_EQ(Failure([&] { RegEntry::DeleteInternal(Classes, sName); }),
              "5001 RegEntry.CopyInternal 35001(" + sName + ")");
    RegEntry::RemoveProgID(sName);
  }
  EXPECT_EQ(Tree(sFirst + "\\Sub", Classes), "v=1");
  EXPECT_EQ(Tree(sClass, Classes), "[TypeLib v=1]");
  const RegistryKey hClasses = Create(Classes, "CLSID");
  registry_.DeleteValue(hClasses, "");
  registry_.CloseKey(hClasses);
  for (const std::string& sKey : {sFirst, sClass}) Clear(Classes, sKey);
}

// What only a registry that tests control refuses.
class RefusedTrees : public ProgramTest {
 protected:
  RefusedTrees() {
    for (const char* sPath : {"\\Source\\A", "\\Source\\B\\C", "\\Source\\D"})
      registry.SetText(sRoot + sPath, "v", "1");
    objReg.OpenKey("");
  }

  const std::string sRoot = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta";
  RegEntry objReg;
};

TEST_F(RefusedTrees, ErrorsNameTheSubkeyAndLeaveNoHandle) {
  const auto copy = [&] {
    RegEntry objSource;
    objSource.OpenKey("Source");
    objSource.Copy("Target");
  };
  RegistryKey hKey = RegistryKey::None;
  const auto remove = [&] { objReg.DeleteKey("Source"); };
  const auto text = [&](const char* sPath) {
    return registry.Text(sRoot + sPath, "v").value_or("none");
  };

  registry.RefuseAccess(sRoot + "\\Source\\B\\C");
  EXPECT_EQ(Failure(copy), "5001 RegEntry.CopyInternal 35001(C)");
  EXPECT_EQ(text("\\Target\\A") + text("\\Target\\B\\C") + text("\\Target\\D"), "1nonenone");
  EXPECT_EQ(Failure(remove), "5001 RegEntry.CopyInternal 35001(C)");
  EXPECT_EQ(text("\\Source\\A") + text("\\Source\\D"), "none1");

  registry.ClearFaults();
  registry.RefuseCreation(sRoot + "\\Target\\B");
  EXPECT_EQ(Failure(copy), "5000 RegEntry.CopyInternal 35002(C)");
  registry.RefuseDeletion(sRoot + "\\Source\\D");
  EXPECT_EQ(Failure(remove), "5001 RegEntry.CopyInternal 35001(D)");
  EXPECT_EQ(Failure([&] { objReg.DeleteKey("Source\\D"); }), "none") << "nobody looks at this one";
  EXPECT_EQ(registry.OpenHandles(), 1U);

  registry.ClearFaults();
  registry.RefuseValue("v");
  registry.OpenKey(RegistryKey::LocalMachine, "SOFTWARE\\Korvanta\\Source", RegistryReadWrite,
                   hKey);
  Set(registry, hKey, "number", "1234", 4);  // REG_DWORD
  registry.CloseKey(hKey);
  copy();
  EXPECT_EQ(text("\\Target\\D"), "none") << "a value that cannot be written is left out";
  const auto* target = registry.Find(RegistryKey::LocalMachine, "SOFTWARE\\Korvanta\\Target");
  ASSERT_NE(target->FindValue("number"), nullptr);
  EXPECT_EQ(target->FindValue("number")->lType, RegistryTypeText);
}

// Every call of the registry fails once, in each of its ways.
TEST_F(RefusedTrees, NoFaultLeavesAHandleOrGetsOutOfAList) {
  for (const char cKind : {Faults::Result, Faults::Broken, Faults::NoMemory})
    for (std::size_t nCalls = 1, n = 1; n <= nCalls; ++n) {
      SCOPED_TRACE(std::string(1, cKind) + std::to_string(n));
      faults = {};
      for (const char* sPath : {"\\Source\\A", "\\Source\\B\\C", "\\Gone\\A\\B", "\\Gone\\C"})
        registry.SetText(sRoot + sPath, "v", "1");
      registry.SetText("HKEY_CLASSES_ROOT\\Prog\\Clsid", "", "Class");
      registry.SetText("HKEY_CLASSES_ROOT\\CLSID\\Class\\TypeLib", "", "Library");
      registry.SetText("HKEY_CLASSES_ROOT\\TypeLib\\Library\\Sub", "", "v");
      faults.nFailing = n;
      faults.cKind = cKind;
      Texts keys;
      RegEntry::ValueArray values;
      RegEntry objSource;
      const std::function<void()> operations[] = {[&] { objSource.OpenKey("Source"); },
                                                  [&] { objSource.Copy("Target\\New"); },
                                                  [&] { objReg.DeleteKey("Gone"); }};
      for (const auto& operation : operations) {
        const std::size_t nBefore = faults.calls.size();
        try {
          operation();
        } catch (...) {
          EXPECT_TRUE(nBefore < n && n <= faults.calls.size()) << "nothing failed in it";
        }
      }
      EXPECT_NO_THROW(objSource.Query(keys));
      EXPECT_NO_THROW(objSource.QueryValues(values));
      EXPECT_NO_THROW(RegEntry::RemoveProgID("Prog"));
      nCalls = faults.calls.size();
      EXPECT_EQ(registry.OpenHandles(), n == 1 ? 1U : 2U);
    }
}

// Names without a NUL, and lists without an end or with a fault in them.
class StrangeRegistry : public MemoryRegistry {
 public:
  std::int32_t EnumKey(RegistryKey, std::uint32_t lIndex, char* pName, std::uint32_t) override {
    if (lIndex == lFault) return RegistryUnusable;
    const std::string sName = lIndex == 1 ? std::string(256, 'x') : "Key";
    sName.copy(pName, sName.size());
    return RegistrySuccess;
  }
  std::int32_t EnumValue(RegistryKey, std::uint32_t, char*, std::uint32_t& lNameSize, char*,
                         std::uint32_t& lDataSize) override {
    lNameSize = lDataSize = 0;
    return RegistrySuccess;
  }

  std::uint32_t lFault = 3;
};

TEST_F(ProgramTest, StrangeListsEndWithZero) {
  StrangeRegistry strange;
  const PlatformScope strangeScope({&strange, &libraries, &system});
  {
    RegEntry objReg;
    objReg.CreateKey("A");
    Texts keys;
    EXPECT_EQ(objReg.Query(keys), 0);
    EXPECT_EQ(keys, (Texts{"Key", "Key"}));
    EXPECT_EQ(system.messages, (std::vector<ShownMessage>{{"No ending 0 found", MessageIcon::None,
                                                           MessageButtons::Ok, ""}}));
    strange.lFault = 0xFFFFFFFF;
    EXPECT_EQ(objReg.Query(keys), 0);
    EXPECT_EQ(keys.size(), 2U + 32767U);
    RegEntry::ValueArray values;
    EXPECT_EQ(objReg.QueryValues(values), 0);
    EXPECT_EQ(values[2].size(), 32768U) << "filled as far as 16 bits count";
  }
  EXPECT_EQ(strange.OpenHandles(), 0U);
}

}  // namespace
}  // namespace trelin
