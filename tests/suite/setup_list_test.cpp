#include "suite/setup_list.h"

#include <stdexcept>

#include "seam/platform_error.h"
#include "testing/program_test.h"

namespace trelin {
namespace {

const std::string sFile = "C:\\Suite\\TRELIN.CFG";
const std::string sList = "BLOCK SETUPLIST\n", sApp = "BLOCK APPLICATION\n";
const std::string sNeed = "BLOCK DEPENDENCY\n";

class SetupListTest : public ProgramTest {
 protected:
  SetupListTest() { list.Initialize(); }

  void Load(const std::string& sText) {
    system.files[sFile] = sText;
    list.LoadFromFile(sFile);
  }

  std::shared_ptr<MenuItem> Item(std::int32_t lNumber) { return list.MenuItems().Item(lNumber); }

  // A record of that revision whose check file is there; none for an empty one.
  void Install(const std::string& sCode, const std::string& sRevision) {
    Record(sCode, sRevision);
    Record(sCode + "CheckFile", sRevision.empty() ? "" : sFile);
  }

  SetupList list;
};

TEST_F(SetupListTest, ReadsAWholeFile) {
  Load(
      "; Setup list of the suite\r\n"
      "block setuplist Suite\r\n"
      "TITLE = first\r\ntitle = Suite Setup\r\n"
      "BLOCK APPLICATION Inspect\r\n"
      "PRODUCT = not this, which is longer\r\n"
      "\tDESCRIPTION = Measures parts\r\nIMAGE = inspect.bmp\r\n"
      "BLOCK DEPENDENCY\r\nTITLE = Common Runtime\r\nPRODUCTCODE = RUNTIME\r\nEND\r\n"
      "INSTALLFILE = inspect.exe\r\nREADMEFILE = readme.exe inspect.txt\r\n"
      "UNINSTALLNAME = x\r\nREVISION = 2.1\r\nPRODUCTCODE = INSPECT\r\n"
      "Product = Inspection Station\r\n"
      "END\r\n"
      "BLOCK APPLICATION\r\nPRODUCT = Report Designer\r\n");  // the ENDs may be missing
  EXPECT_EQ(list.MenuItems().Count(), 2);
  EXPECT_EQ(Item(1)->Title() + "|" + Item(1)->Description(), "Inspection Station|Measures parts");
  EXPECT_EQ(Item(2)->Title() + "|" + Item(2)->Description(), "Report Designer|");
  EXPECT_FALSE(Item(1)->CheckDependencies()) << "the prerequisite was read";
  EXPECT_EQ(system.nBeeps, 0);
  EXPECT_TRUE(system.messages.empty());
  EXPECT_EQ(system.nOpenFiles, 0);
}

TEST_F(SetupListTest, AFaultIsReportedWithItsLine) {
  const struct {
    std::string sText, sFailure;
    std::int32_t lItemsKept;
  } cases[] = {
      {"", "5001 35009 35011(0)", 0},
      {";\n;\n", "5001 35009 35011(2)", 0},
      {"\nTITLE = x\n" + sList, "5001 35009 35011(2)", 0},
      {sApp, "5001 35009 35010(BLOCK|1|SETUPLIST|APPLICATION)", 0},
      {sList + sNeed, "5001 35009 35010(BLOCK|2|APPLICATION|DEPENDENCY)", 0},
      {sList + sApp + "END\n" + sApp + "BLOCK prerequisite x\n",
       "5001 35009 35010(BLOCK|5|DEPENDENCY|PREREQUISITE)", 1},
      {sList + sApp + sNeed + sNeed, "5001 35009 35005(4|DEPENDENCY)", 0},
      {sList + "END\n; fine\n" + sList, "5001 35009 35012(4)", 0},
      {sList + sApp + "END\nEND\nEND\n", "5001 35009 35012(5)", 1},
      {sList + sApp + "Setup\n", "5000 BlockParse.GetToken 35008(3)", 0},
      {sList + "END\nSetup\n", "5000 BlockParse.GetToken 35008(3)", 0},
  };
  for (const auto& c : cases) {
    list.Initialize();
    EXPECT_EQ(Failure([&] { Load(c.sText); }), c.sFailure) << c.sText;
    EXPECT_EQ(list.MenuItems().Count(), c.lItemsKept) << c.sText;
    EXPECT_EQ(system.nOpenFiles, 0) << c.sText;
  }
  EXPECT_THROW(list.LoadFromFile("C:\\missing"), PlatformError);
}

TEST_F(SetupListTest, AnUnknownKeyIsShownOutsideAndBeepsInside) {
  Load(sList + "name = x\n" + sApp + "PRODUCT = A\nTITLE = B\n" + sNeed +
       "PRODUCT = C\nEND\nEND\nName = y\n");
  const ShownMessage expected{"35013(35014|NAME)", MessageIcon::None, MessageButtons::Ok, "35009"};
  EXPECT_EQ(system.messages, (std::vector{expected, expected}));
  EXPECT_EQ(system.nBeeps, 2);
  EXPECT_EQ(Item(1)->Title(), "A");
}

TEST_F(SetupListTest, InstallationsAreCheckedOnlyAfterTheWholeFileWasRead) {
  Record("A", "1");
  const std::string sProduct = sApp + "PRODUCTCODE = A\nREVISION=1\nEND\n";
  EXPECT_NE(Failure([&] { Load(sList + sProduct + "x"); }), "none");
  EXPECT_EQ(Item(1)->Status(), "35015");
  Load(sList + sProduct + sProduct);
  EXPECT_EQ(list.MenuItems().Count(), 3) << "they are appended";
  for (const std::int32_t l : {1, 2, 3}) EXPECT_EQ(Item(l)->Status(), "35016");
}

TEST_F(SetupListTest, TheRecordDecidesStatusAndPrerequisite) {
  const struct {
    const char *sInstalled, *sCheckFile;  // empty: not recorded
    const char* sStatus;
    const char* sReason;  // empty: the prerequisite is met
  } cases[] = {
      {"", "", "35015", "35039(Runtime)"},
      {"", "present", "35015", "35036(Runtime)"},
      {"", "C:\\missing", "35032", "35038(Runtime)"},
      {" 2.9 ", "", "35016", "35039(Runtime)"},
      {" 2.9 ", "present", "35016", ""},
      {"2.9", "C:\\missing", "35032", "35038(Runtime)"},
      {"2.8", "present", "35017", "35037(2.9|Runtime|2.8)"},
      {" 2.8 ", "present", "35017", "35037(2.9|Runtime|2.8)"},
      {"2.8", "", "35017", "35039(Runtime)"},
      {"2.8", "C:\\missing", "35032", "35038(Runtime)"},
      {"2.10", "present", "35017", "35037(2.9|Runtime|2.10)"},
      {"2.9.1", "present", "35018 newer", ""},
      {"2.9.1", "", "35018 newer", "35039(Runtime)"},
      {"2.9a", "C:\\missing", "35032 newer", "35038(Runtime)"},
      {"\xE9", "present", "35018 newer", ""},
  };
  const std::string sRuntime = "PRODUCTCODE = RUNTIME\nREVISION = 2.9\n";
  system.files["present"] = "";
  Record("other", "x");  // the log itself is there
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string("revision \"") + c.sInstalled + "\", check file " + c.sCheckFile);
    Record("RUNTIME", c.sInstalled);
    Record("RUNTIMECheckFile", c.sCheckFile);
    list.Initialize();
    Load(sList + sApp + sRuntime + sNeed + sRuntime + "TITLE = Runtime\n");
    EXPECT_EQ(Item(1)->Status() + (Item(1)->NewerVersion() ? " newer" : ""), c.sStatus);
    EXPECT_EQ(list.CheckDependencies(), *c.sReason == 0);
    EXPECT_EQ(list.LastError(), c.sReason);
  }
  EXPECT_EQ(registry.OpenHandles(), 0U);
}

TEST_F(SetupListTest, WithoutACodeAProductIsNotLookedUpButAPrerequisiteIs) {
  Install("", "1.0");
  Load(sList + sApp + "REVISION = 1.0\n" + sNeed + "REVISION = 1.0\n");
  EXPECT_EQ(Item(1)->Status(), "35015");
  EXPECT_TRUE(list.CheckDependencies());
}

TEST_F(SetupListTest, AChangeIsSeenOnceAndANewerVersionIsNeverForgotten) {
  Load(sList + sApp + "PRODUCTCODE = A\nREVISION = 1\n");
  const auto item = Item(1);
  const auto check = [&](const char* sInstalled) {
    Record("A", sInstalled);
    item->CheckInstallation();
    return item->Status() + (item->Updated() ? " updated" : "") +
           (item->NewerVersion() ? " newer" : "");
  };
  EXPECT_EQ(check(""), "35015");
  EXPECT_EQ(check("1"), "35016 updated");
  EXPECT_EQ(check("1"), "35016");
  EXPECT_EQ(check("2"), "35018 updated newer");
  EXPECT_EQ(check("1"), "35016 updated newer");
  item->Initialize();
  EXPECT_EQ(check("1"), "35015") << "begins anew, without its code";
}

TEST_F(SetupListTest, TheFirstUnmetPrerequisiteStopsTheCheckAndOldTextsStay) {
  const auto needs = [](const std::string& sCode) {
    return sNeed + "PRODUCTCODE = " + sCode + "\nTITLE = " + sCode + "\nEND\n";
  };
  Load(sList + sApp + needs("A") + needs("B") + needs("C") + "END\n" + sApp + "END\n" + sApp +
       needs("D"));
  const auto reason = [&](const char* sCode, const char* sRevision) {
    Install(sCode, sRevision);
    return list.CheckDependencies() ? "met" : list.LastError();
  };
  Install("B", "1");
  Item(3)->CheckDependencies();
  EXPECT_EQ(reason("B", "1"), "35039(D)") << "the last in their order, not in time";
  EXPECT_EQ(list.LastError(), "") << "reading consumes it";
  EXPECT_EQ(reason("B", "1"), "35039(A)");
  Install("A", "1");
  Item(1)->CheckDependencies();
  EXPECT_EQ(reason("B", ""), "35039(C)") << "C was not checked again and keeps its text";
  EXPECT_EQ(reason("B", ""), "35039(B)");
  for (const char* sCode : {"B", "C"}) Install(sCode, "1");
  EXPECT_EQ(reason("D", "1"), "met");
}

TEST_F(SetupListTest, AnItemOutsideTheNumbersIsNamed) {
  Load(sList + sApp + "END\n");
  for (const std::int32_t lNumber : {-1, 0, 2})
    EXPECT_EQ(Failure([&] { Item(lNumber); }),
              "There is no item " + std::to_string(lNumber) + " in a list of 1.");
  EXPECT_THROW(list.ActiveItem(), std::out_of_range);
  const auto item = Item(1);
  list.Terminate();
  EXPECT_EQ(item->Status(), "35015") << "an item lives as long as somebody holds it";
}

}  // namespace
}  // namespace trelin
