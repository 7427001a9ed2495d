#include "suite/dependency.h"
#include "suite/menu_item.h"
#include "suite/reg_entry.h"
#include "testing/program_test.h"

namespace trelin {
namespace {

class Installation : public ProgramTest {
 protected:
  template <class Item>
  void Read(Item& item, const std::string& sBlock) {
    system.files["C:\\block"] = sBlock;
    BlockParser parser;
    parser.OpenFile("C:\\block", false);
    item.Initialize();
    item.LoadFromFile(parser);
  }
};

TEST_F(Installation, TheRecordDecidesStatusAndPrerequisite) {
  system.files["C:\\present"] = "";
  const struct {
    const char *sInstalled, *sCheckFile;  // null: not recorded
    const char* sStatus;
    bool bNewer;
    const char* sReason;  // null: the prerequisite is met
  } cases[] = {
      {nullptr, nullptr, "35015", false, "35039(Runtime)"},
      {nullptr, "C:\\present", "35015", false, "35036(Runtime)"},
      {nullptr, "C:\\missing", "35032", false, "35038(Runtime)"},
      {" 2.9 ", nullptr, "35016", false, "35039(Runtime)"},
      {" 2.9 ", "C:\\present", "35016", false, nullptr},
      {"2.9", "C:\\missing", "35032", false, "35038(Runtime)"},
      {"2.8", "C:\\present", "35017", false, "35037(2.9|Runtime|2.8)"},
      {"2.8", "C:\\missing", "35032", false, "35038(Runtime)"},
      {"2.10", "C:\\present", "35017", false, "35037(2.9|Runtime|2.10)"},
      {"2.9.1", "C:\\present", "35018", true, nullptr},
      {"2.9.1", nullptr, "35018", true, "35039(Runtime)"},
      {"2.9a", "C:\\missing", "35032", true, "35038(Runtime)"},
      {"\xE9", "C:\\present", "35018", true, nullptr},
  };
  for (const auto& c : cases) {
    Record("other", "x");  // the log itself is there
    Record("RUNTIME", c.sInstalled ? c.sInstalled : "");
    Record("RUNTIMECheckFile", c.sCheckFile ? c.sCheckFile : "");
    const std::string sCase = std::string(c.sInstalled ? c.sInstalled : "none") + ", check file " +
                              (c.sCheckFile ? c.sCheckFile : "none");
    MenuItem item;
    Read(item, "PRODUCTCODE = RUNTIME\nREVISION = 2.9\n");
    item.CheckInstallation();
    EXPECT_EQ(item.Status(), c.sStatus) << sCase;
    EXPECT_EQ(item.NewerVersion(), c.bNewer) << sCase;

    Dependency dependency;
    Read(dependency, "PRODUCTCODE = RUNTIME\nREVISION = 2.9\nTITLE = Runtime\n");
    EXPECT_EQ(dependency.CheckDependency(), c.sReason == nullptr) << sCase;
    EXPECT_EQ(dependency.LastError(), c.sReason ? c.sReason : "") << sCase;
  }
  EXPECT_EQ(registry.OpenHandles(), 0U);
}

TEST_F(Installation, WithoutALogNothingIsInstalled) {
  system.files["C:\\missing"] = "";
  MenuItem item;
  Read(item, "PRODUCTCODE = A\nREVISION = 1\n");
  Dependency dependency;
  Read(dependency, "TITLE = Runtime\n");
  const auto expectNothing = [&](const char* sCase) {
    item.CheckInstallation();
    EXPECT_EQ(item.Status(), "35015") << sCase;
    EXPECT_FALSE(item.Updated()) << sCase;
    EXPECT_FALSE(dependency.CheckDependency()) << sCase;
    EXPECT_EQ(dependency.LastError(), "35035(Runtime)") << sCase;
  };
  expectNothing("no log");
  Record("A", "1");
  registry.RefuseAccess("HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\InstallLog");
  expectNothing("a log that may only be read");
}

TEST_F(Installation, WithoutACodeAProductIsNotLookedUpButAPrerequisiteIs) {
  system.files["C:\\present"] = "";
  Record("", "1.0");
  Record("CheckFile", "C:\\present");
  MenuItem item;
  Read(item, "REVISION = 1.0\n");
  item.CheckInstallation();
  EXPECT_EQ(item.Status(), "35015");
  Dependency dependency;
  Read(dependency, "REVISION = 1.0\n");
  EXPECT_TRUE(dependency.CheckDependency());
}

TEST_F(Installation, AChangeIsSeenOnceAndANewerVersionIsNeverForgotten) {
  MenuItem item;
  Read(item, "PRODUCTCODE = A\nREVISION = 1\n");
  const auto check = [&](const char* sInstalled) {
    Record("A", sInstalled);
    item.CheckInstallation();
    return item.Status() + (item.Updated() ? " updated" : "") +
           (item.NewerVersion() ? " newer" : "");
  };
  EXPECT_EQ(check("1"), "35016 updated");
  EXPECT_EQ(check("1"), "35016");
  EXPECT_EQ(check("2"), "35018 updated newer");
  EXPECT_EQ(check("1"), "35016 updated newer");
}

TEST_F(Installation, TheFirstUnmetPrerequisiteStopsTheCheckAndOldTextsStay) {
  system.files["C:\\present"] = "";
  MenuItem item;
  Read(item,
       "BLOCK DEPENDENCY\nPRODUCTCODE = A\nTITLE = A\nEND\n"
       "BLOCK DEPENDENCY\nPRODUCTCODE = B\nTITLE = B\nEND\n"
       "BLOCK DEPENDENCY\nPRODUCTCODE = C\nTITLE = C\nEND\n");
  for (const char* sCode : {"A", "B"}) {
    Record(sCode, "1");
    Record(std::string(sCode) + "CheckFile", "C:\\present");
  }
  EXPECT_FALSE(item.CheckDependencies());
  EXPECT_EQ(item.LastError(), "35039(C)");
  Record("BCheckFile", "");
  EXPECT_FALSE(item.CheckDependencies());
  EXPECT_EQ(item.LastError(), "35039(C)") << "C was not checked again and keeps its text";
  item.ClearError();
  EXPECT_FALSE(item.CheckDependencies());
  EXPECT_EQ(item.LastError(), "35039(B)");
}

}  // namespace
}  // namespace trelin
