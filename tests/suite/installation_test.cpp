#include "suite/dependency.h"
#include "suite/menu_item.h"
#include "suite/reg_entry.h"
#include "testing/program_test.h"

namespace trelin {
namespace {

class Installation : public ProgramTest {
 protected:
  Installation() { system.files["C:\\present"] = ""; }

  template <class Item>
  Item Read(const std::string& sBlock) {
    system.files["C:\\block"] = sBlock;
    BlockParser parser;
    parser.OpenFile("C:\\block", false);
    Item item;
    item.Initialize();
    item.LoadFromFile(parser);
    return item;
  }

  // A record of that revision whose check file is there; nothing for an empty one.
  void Install(const std::string& sCode, const std::string& sRevision) {
    Record(sCode, sRevision);
    Record(sCode + "CheckFile", sRevision.empty() ? "" : "C:\\present");
  }
};

TEST_F(Installation, TheRecordDecidesStatusAndPrerequisite) {
  const struct {
    const char *sInstalled, *sCheckFile;  // empty: not recorded
    const char* sStatus;
    const char* sReason;  // empty: the prerequisite is met
  } cases[] = {
      {"", "", "35015", "35039(Runtime)"},
      {"", "C:\\present", "35015", "35036(Runtime)"},
      {"", "C:\\missing", "35032", "35038(Runtime)"},
      {" 2.9 ", "", "35016", "35039(Runtime)"},
      {" 2.9 ", "C:\\present", "35016", ""},
      {"2.9", "C:\\missing", "35032", "35038(Runtime)"},
      {"2.8", "C:\\present", "35017", "35037(2.9|Runtime|2.8)"},
      {" 2.8 ", "C:\\present", "35017", "35037(2.9|Runtime|2.8)"},
      {"2.8", "", "35017", "35039(Runtime)"},
      {"2.8", "C:\\missing", "35032", "35038(Runtime)"},
      {"2.10", "C:\\present", "35017", "35037(2.9|Runtime|2.10)"},
      {"2.9.1", "C:\\present", "35018 newer", ""},
      {"2.9.1", "", "35018 newer", "35039(Runtime)"},
      {"2.9a", "C:\\missing", "35032 newer", "35038(Runtime)"},
      {"\xE9", "C:\\present", "35018 newer", ""},
  };
  Record("other", "x");  // the log itself is there
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string("revision \"") + c.sInstalled + "\", check file " + c.sCheckFile);
    Record("RUNTIME", c.sInstalled);
    Record("RUNTIMECheckFile", c.sCheckFile);
    auto item = Read<MenuItem>("PRODUCTCODE = RUNTIME\nREVISION = 2.9\n");
    item.CheckInstallation();
    EXPECT_EQ(item.Status() + (item.NewerVersion() ? " newer" : ""), c.sStatus);

    auto dependency = Read<Dependency>("PRODUCTCODE = RUNTIME\nREVISION = 2.9\nTITLE = Runtime\n");
    EXPECT_EQ(dependency.CheckDependency(), *c.sReason == 0);
    EXPECT_EQ(dependency.LastError(), c.sReason);
  }
  EXPECT_EQ(registry.OpenHandles(), 0U);
}

TEST_F(Installation, WithoutALogNothingIsInstalled) {
  auto item = Read<MenuItem>("PRODUCTCODE = A\nREVISION = 1\n");
  auto dependency = Read<Dependency>("TITLE = Runtime\n");
  for (const bool bLog : {false, true}) {
    const char* const sCase = bLog ? "a log that may only be read" : "no log";
    if (bLog) Install("A", "1");
    if (bLog) registry.RefuseAccess("HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\InstallLog");
    item.CheckInstallation();
    EXPECT_EQ(item.Status(), "35015") << sCase;
    EXPECT_FALSE(item.Updated()) << sCase;
    EXPECT_FALSE(dependency.CheckDependency()) << sCase;
    EXPECT_EQ(dependency.LastError(), "35035(Runtime)") << sCase;
  }
}

TEST_F(Installation, WithoutACodeAProductIsNotLookedUpButAPrerequisiteIs) {
  Install("", "1.0");
  auto item = Read<MenuItem>("REVISION = 1.0\n");
  item.CheckInstallation();
  EXPECT_EQ(item.Status(), "35015");
  EXPECT_TRUE(Read<Dependency>("REVISION = 1.0\n").CheckDependency());
}

TEST_F(Installation, AChangeIsSeenOnceAndANewerVersionIsNeverForgotten) {
  auto item = Read<MenuItem>("PRODUCTCODE = A\nREVISION = 1\n");
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
  item.Initialize();
  EXPECT_EQ(check("1"), "35015") << "begins anew, without its code";
}

TEST_F(Installation, TheFirstUnmetPrerequisiteStopsTheCheckAndOldTextsStay) {
  std::string sBlocks;
  for (const std::string sCode : {"A", "B", "C"})
    sBlocks += "BLOCK DEPENDENCY\nPRODUCTCODE = " + sCode + "\nTITLE = " + sCode + "\nEND\n";
  auto item = Read<MenuItem>(sBlocks);
  const auto reason = [&](const char* sCode, const char* sRevision) {
    Install(sCode, sRevision);
    return item.CheckDependencies() ? "met" : item.LastError();
  };
  EXPECT_EQ(reason("B", "1"), "35039(A)");
  EXPECT_EQ(reason("A", "1"), "35039(C)");
  EXPECT_EQ(reason("B", ""), "35039(C)") << "C was not checked again and keeps its text";
  item.ClearError();
  EXPECT_EQ(reason("B", ""), "35039(B)");
  Install("B", "1");
  EXPECT_EQ(reason("C", "1"), "met");
}

}  // namespace
}  // namespace trelin
