#include "suite/reg_entry.h"

#include "testing/program_test.h"

namespace trelin {
namespace {

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
  const std::string sRoot = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\";
  objReg.CreateKey("ReadOnly");
  registry.RefuseAccess(sRoot + "ReadOnly");
  registry.RefuseCreation(sRoot + "Values");
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

TEST_F(RegEntryTest, ValuesAreReadAsTextOfAtMost255Bytes) {
  const struct {
    const char* sCase;
    std::string sData, sExpected;
  } cases[] = {
      {"one NUL is dropped", std::string("abc\0", 4), "abc"},
      {"but only one", std::string("abc\0\0", 5), std::string("abc\0", 4)},
      {"only its NUL", std::string("\0", 1), ""},
      {"spaces at the ends", " a ", " a "},
      {"255 bytes", std::string(255, 'x'), std::string(255, 'x')},
      {"256 bytes", std::string(256, 'x'), ""},
  };
  for (const auto& c : cases) {
    objReg.SetString("v", c.sData);
    EXPECT_EQ(objReg.GetString("V"), c.sExpected) << c.sCase;
  }
}

TEST_F(RegEntryTest, AnEmptyTextDeletesAndABooleanIsAWord) {
  const std::pair<const char*, bool> cases[] = {
      {"TRUE", true}, {"Yes", true}, {"1", true},   {"x", true},      {" 0", true},
      {"-1", true},   {"0", false},  {"no", false}, {"False", false}, {"", false},
  };
  for (const auto& [sText, bExpected] : cases) {
    objReg.SetString("b", sText);
    EXPECT_EQ(objReg.GetString("b"), sText);
    EXPECT_EQ(objReg.GetBoolean("b"), bExpected) << "[" << sText << "]";
  }
  for (const bool b : {true, false}) {
    objReg.SetBoolean("b", b);
    EXPECT_EQ(objReg.GetString("b"), b ? "true" : "false");
  }
  registry.RefuseValue("refused");
  EXPECT_EQ(Failure([&] { objReg.SetString("refused", "x"); }),
            "5002 RegEntry.SetValue 35003(refused)");
  objReg.SetString("refused", "");
  EXPECT_EQ(objReg.GetString("b"), "false") << "the key stays open";
}

TEST_F(RegEntryTest, ARegistryThatCannotBeReadIsNotTakenForAnEmptyOne) {
  const std::pair<const char*, std::function<void()>> operations[] = {
      {"test", [&] { objReg.TestKey("B"); }},
      {"read", [&] { objReg.GetString("v"); }},
      {"write", [&] { objReg.SetString("v", "x"); }},
      {"delete", [&] { objReg.DeleteValue("v"); }},
      {"copy", [&] { objReg.Copy("B"); }},
      {"delete a key", [&] { objReg.DeleteKey("B"); }},
      {"create", [&] { objReg.CreateKey("B"); }},
      {"open", [&] { objReg.OpenKey("B"); }},
  };
  faults.nFailing = faults.calls.size() + 1;
  faults.cKind = Faults::Broken;
  faults.reach = Faults::Reach::Everything;
  for (const auto& [sCase, operation] : operations) {
    const std::string sFailure = Failure(operation);
    EXPECT_TRUE(sFailure.ends_with(": it is broken.")) << sCase << ": " << sFailure;
  }
  faults.bCounts = false;
  objReg.OpenKey("Values");
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
