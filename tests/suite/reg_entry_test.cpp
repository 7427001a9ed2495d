#include "suite/reg_entry.h"

#include "testing/program_test.h"

namespace trelin {
namespace {

const std::string sRoot = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta";

class RegEntryTest : public ProgramTest {
 protected:
  ~RegEntryTest() override { EXPECT_EQ(registry.OpenHandles(), 0U); }
};

TEST_F(RegEntryTest, CreatesEveryMissingLevelAndKeepsWhatIsThere) {
  RegEntry objReg;
  objReg.CreateKey("A");
  objReg.SetString("kept", "x");
  objReg.CreateKey("A\\B\\C");
  objReg.SetString("deep", "y");
  objReg.OpenKey("A");
  EXPECT_EQ(objReg.GetString("kept"), "x");
  objReg.SetDefaultRoot("SOFTWARE");
  EXPECT_EQ(objReg.GetString("kept"), "x") << "the open key stays";
  objReg.OpenKey("Korvanta\\A\\B\\C");
  EXPECT_EQ(objReg.GetString("deep"), "y");
}

TEST_F(RegEntryTest, AMissingKeyIsNamedWithItsPath) {
  RegEntry objReg;
  objReg.CreateKey("A");
  EXPECT_EQ(Failure([&] { objReg.OpenKey("B"); }),
            "5001 RegEntry.OpenInternal 35001(SOFTWARE\\Korvanta\\B)");
  objReg.SetString("x", "y");
  EXPECT_EQ(objReg.GetString("x"), "") << "no key is open";
  EXPECT_FALSE(objReg.GetBoolean("x"));
  EXPECT_TRUE(objReg.TestKey("A"));
  EXPECT_FALSE(objReg.TestKey("B"));
}

TEST_F(RegEntryTest, ARefusalIsNamedAndLeavesNoHandle) {
  {
    RegEntry objReg;
    objReg.CreateKey("ReadOnly");
    objReg.SetString("x", "y");
  }
  RegEntry objReg;
  registry.RefuseAccess(sRoot + "\\ReadOnly");
  EXPECT_FALSE(objReg.TestKey("ReadOnly")) << "what cannot be written counts as missing";
  EXPECT_EQ(Failure([&] { objReg.OpenKey("ReadOnly"); }),
            "5001 RegEntry.OpenInternal 35001(SOFTWARE\\Korvanta\\ReadOnly)");
  EXPECT_EQ(Failure([&] { objReg.CreateKey("ReadOnly\\Deeper"); }),
            "5000 RegEntry.CreateInternal 35002(ReadOnly)");
  EXPECT_EQ(Failure([&] { objReg.CreateKey("ReadOnly"); }),
            "5000 RegEntry.CreateInternal 35001(ReadOnly)");
  EXPECT_EQ(objReg.GetString("x"), "");

  objReg.CreateKey("Writable");
  registry.RefuseValue("refused");
  EXPECT_EQ(Failure([&] { objReg.SetString("refused", "x"); }),
            "5002 RegEntry.SetValue 35003(refused)");
  objReg.SetString("other", "x");
  EXPECT_EQ(objReg.GetString("other"), "x") << "the key stays open";
}

TEST_F(RegEntryTest, ValuesAreReadAsTextOfAtMost255Bytes) {
  const struct {
    const char* sCase;
    std::string sData, sExpected;
  } cases[] = {
      {"one NUL is dropped", std::string("abc\0", 4), "abc"},
      {"but only one", std::string("abc\0\0", 5), std::string("abc\0", 4)},
      {"only its NUL", std::string("\0", 1), ""},
      {"255 bytes", std::string(255, 'x'), std::string(255, 'x')},
      {"256 bytes", std::string(256, 'x'), ""},
  };
  RegEntry objReg;
  objReg.CreateKey("Values");
  RegistryKey hKey = RegistryKey::None;
  registry.OpenKey(RegistryKey::LocalMachine, "SOFTWARE\\Korvanta\\Values", RegistryReadWrite,
                   hKey);
  for (const auto& c : cases) {
    registry.SetValue(hKey, "v", 3, c.sData.data(), static_cast<std::uint32_t>(c.sData.size()));
    EXPECT_EQ(objReg.GetString("V"), c.sExpected) << c.sCase;
  }
  registry.CloseKey(hKey);
}

TEST_F(RegEntryTest, AnEmptyTextDeletesAndABooleanIsAWord) {
  RegEntry objReg;
  objReg.CreateKey("Values");
  objReg.SetString("v", "x");
  objReg.SetString("v", "");
  EXPECT_EQ(registry.OpenHandles(), 1U);
  EXPECT_EQ(objReg.GetString("v"), "");

  const std::pair<const char*, bool> cases[] = {
      {"TRUE", true}, {"Yes", true}, {"1", true},   {"x", true},      {" 0", true},
      {"-1", true},   {"0", false},  {"no", false}, {"False", false}, {"", false},
  };
  for (const auto& [sText, bExpected] : cases) {
    objReg.SetString("b", sText);
    EXPECT_EQ(objReg.GetBoolean("b"), bExpected) << "[" << sText << "]";
  }
  objReg.SetBoolean("b", true);
  EXPECT_EQ(objReg.GetString("b"), "true");
  objReg.SetBoolean("b", false);
  EXPECT_EQ(objReg.GetString("b"), "false");
}

TEST_F(RegEntryTest, ALanguagesOwnValueComesFirst) {
  RegEntry objReg;
  objReg.CreateKey("Values");
  objReg.SetString("Title", "for all");
  EXPECT_EQ(objReg.GetStringInternational("Title", 1033), "for all");
  objReg.SetString("ENUTitle", "English");
  EXPECT_EQ(objReg.GetStringInternational("Title", 1033), "English");
  EXPECT_EQ(objReg.GetStringInternational("Title", 1031), "for all");
}

}  // namespace
}  // namespace trelin
