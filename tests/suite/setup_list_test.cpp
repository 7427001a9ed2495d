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

  SetupList list;
};

TEST_F(SetupListTest, ReadsAWholeFile) {
  Load(
      "; Setup list of the suite\r\n"
      "block setuplist Suite\r\n"
      "TITLE = first\r\ntitle = Suite Setup\r\n"
      "BLOCK APPLICATION Inspect\r\n"
      "PRODUCT = not this\r\nProduct = Inspection Station\r\n"
      "\tDESCRIPTION = Measures parts\r\nIMAGE = inspect.bmp\r\n"
      "BLOCK DEPENDENCY\r\nTITLE = Common Runtime\r\nPRODUCTCODE = RUNTIME\r\nEND\r\n"
      "INSTALLFILE = inspect.exe\r\nREADMEFILE = readme.exe inspect.txt\r\n"
      "UNINSTALLNAME = x\r\nREVISION = 2.1\r\nPRODUCTCODE = INSPECT\r\n"
      "END\r\n"
      "BLOCK APPLICATION\r\nPRODUCT = Report Designer\r\n");  // the ENDs may be missing
  const auto texts = [&](std::int32_t lNumber) {
    const auto item = list.MenuItems().Item(lNumber);
    return item->Title() + "|" + item->Description() + "|" + item->ImageFile() + "|" +
           item->InstallFile() + "|" + item->ReadMeFile();
  };
  EXPECT_EQ(list.MenuItems().Count(), 2);
  EXPECT_EQ(texts(1),
            "Inspection Station|Measures parts|inspect.bmp|inspect.exe|readme.exe inspect.txt");
  EXPECT_FALSE(list.MenuItems().Item(1)->CheckDependencies()) << "the prerequisite was read";
  EXPECT_EQ(texts(2), "Report Designer||||");
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
  EXPECT_EQ(list.MenuItems().Item(1)->Title(), "A");
}

TEST_F(SetupListTest, InstallationsAreCheckedOnlyAfterTheWholeFileWasRead) {
  Record("A", "1");
  const std::string sProduct = sApp + "PRODUCTCODE = A\nREVISION=1\nEND\n";
  EXPECT_NE(Failure([&] { Load(sList + sProduct + "x"); }), "none");
  EXPECT_EQ(list.MenuItems().Item(1)->Status(), "35015");
  Load(sList + sProduct + sProduct);
  EXPECT_EQ(list.MenuItems().Count(), 3) << "they are appended";
  for (const std::int32_t l : {1, 2, 3}) EXPECT_EQ(list.MenuItems().Item(l)->Status(), "35016");
}

TEST_F(SetupListTest, ReadingTheLastErrorConsumesIt) {
  Load(sList + sApp + sNeed + "TITLE=A\nEND\nEND\n" + sApp + "END\n" + sApp + sNeed + "TITLE=B\n");
  list.MenuItems().Item(3)->CheckDependencies();
  EXPECT_FALSE(list.CheckDependencies());
  EXPECT_EQ(list.LastError(), "35035(B)") << "the last in their order, not in time";
  EXPECT_EQ(list.LastError(), "");
  EXPECT_FALSE(list.CheckDependencies());
  EXPECT_EQ(list.LastError(), "35035(A)") << "the first that is not met ends the check";
}

TEST_F(SetupListTest, AnItemOutsideTheNumbersIsNamed) {
  Load(sList + sApp + "END\n");
  for (const std::int32_t lNumber : {-1, 0, 2})
    EXPECT_EQ(Failure([&] { list.MenuItems().Item(lNumber); }),
              "There is no item " + std::to_string(lNumber) + " in a list of 1.");
  EXPECT_THROW(list.ActiveItem(), std::out_of_range);
  const auto item = list.MenuItems().Item(1);
  list.Terminate();
  EXPECT_EQ(item->Status(), "35015") << "an item lives as long as somebody holds it";
}

}  // namespace
}  // namespace trelin
