#include "suite/setup_list.h"

#include <stdexcept>

#include "seam/platform_error.h"
#include "testing/program_test.h"
#include "texts/error.h"

namespace trelin {
namespace {

const std::string sFile = "C:\\Suite\\TRELIN.CFG";

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
  ASSERT_EQ(list.MenuItems().Count(), 2);
  const auto item = list.MenuItems().Item(1);
  EXPECT_EQ(item->Title(), "Inspection Station");
  EXPECT_EQ(item->Description(), "Measures parts");
  EXPECT_EQ(item->ImageFile(), "inspect.bmp");
  EXPECT_EQ(item->InstallFile(), "inspect.exe");
  EXPECT_EQ(item->ReadMeFile(), "readme.exe inspect.txt");
  EXPECT_FALSE(item->CheckDependencies()) << "the prerequisite was read";
  EXPECT_EQ(list.MenuItems().Item(2)->Title(), "Report Designer");
  EXPECT_TRUE(list.MenuItems().Item(2)->ReadMeFile().empty());
  EXPECT_EQ(system.nBeeps, 0);
  EXPECT_TRUE(system.messages.empty());
  EXPECT_EQ(system.nOpenFiles, 0);
}

TEST_F(SetupListTest, AFaultIsReportedWithItsLine) {
  const struct {
    const char* sText;
    std::int32_t lNumber;
    const char *sSource, *sDescription;
    std::int32_t lItemsKept;
  } cases[] = {
      {"", 5001, "35009", "35011(0)", 0},
      {";\n;\n", 5001, "35009", "35011(2)", 0},
      {"BLOCK APPLICATION\n", 5001, "35009", "35010(BLOCK|1|SETUPLIST|APPLICATION)", 0},
      {"BLOCK SETUPLIST\nBLOCK DEPENDENCY\n", 5001, "35009",
       "35010(BLOCK|2|APPLICATION|DEPENDENCY)", 0},
      {"BLOCK SETUPLIST\nBLOCK APPLICATION\nEND\nBLOCK APPLICATION\nBLOCK prerequisite x\n", 5001,
       "35009", "35010(BLOCK|5|DEPENDENCY|PREREQUISITE)", 1},
      {"BLOCK SETUPLIST\nBLOCK APPLICATION\nBLOCK DEPENDENCY\nBLOCK DEPENDENCY\n", 5001, "35009",
       "35005(4|DEPENDENCY)", 0},
      {"BLOCK SETUPLIST\nEND\n; fine\nBLOCK SETUPLIST\n", 5001, "35009", "35012(4)", 0},
      {"BLOCK SETUPLIST\nBLOCK APPLICATION\nSetup\n", 5000, "BlockParse.GetToken", "35008(3)", 0},
      {"BLOCK SETUPLIST\nEND\nSetup\n", 5000, "BlockParse.GetToken", "35008(3)", 0},
  };
  for (const auto& c : cases) {
    list.Initialize();
    try {
      Load(c.sText);
      ADD_FAILURE() << "accepted: " << c.sText;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), c.lNumber) << c.sText;
      EXPECT_EQ(error.Source(), c.sSource) << c.sText;
      EXPECT_EQ(error.Description(), c.sDescription) << c.sText;
    }
    EXPECT_EQ(list.MenuItems().Count(), c.lItemsKept) << c.sText;
    EXPECT_EQ(system.nOpenFiles, 0) << c.sText;
  }
  EXPECT_THROW(list.LoadFromFile("C:\\missing"), PlatformError);
}

TEST_F(SetupListTest, AnUnknownKeyIsShownOutsideAndBeepsInside) {
  Load(
      "BLOCK SETUPLIST\nname = x\n"
      "BLOCK APPLICATION\nPRODUCT = A\nTITLE = B\nBLOCK DEPENDENCY\nPRODUCT = C\nEND\nEND\n"
      "Name = y\n");
  const ShownMessage expected{"35013(35014|NAME)", MessageIcon::None, MessageButtons::Ok, "35009"};
  EXPECT_EQ(system.messages, (std::vector{expected, expected}));
  EXPECT_EQ(system.nBeeps, 2);
  EXPECT_EQ(list.MenuItems().Item(1)->Title(), "A");
}

TEST_F(SetupListTest, InstallationsAreCheckedOnlyAfterTheWholeFileWasRead) {
  Record("A", "1");
  const std::string sProduct =
      "BLOCK SETUPLIST\nBLOCK APPLICATION\nPRODUCTCODE = A\nREVISION=1\nEND\n";
  EXPECT_THROW(Load(sProduct + "x"), Error);
  EXPECT_EQ(list.MenuItems().Item(1)->Status(), "35015");
  list.Initialize();
  Load(sProduct);
  EXPECT_EQ(list.MenuItems().Item(1)->Status(), "35016");
}

TEST_F(SetupListTest, ReadingTheLastErrorConsumesIt) {
  const std::string sNeeds = "BLOCK APPLICATION\nBLOCK DEPENDENCY\nTITLE=";
  Load("BLOCK SETUPLIST\n" + sNeeds + "A\nEND\nEND\nBLOCK APPLICATION\nEND\n" + sNeeds + "B\n");
  list.MenuItems().Item(3)->CheckDependencies();
  list.MenuItems().Item(1)->CheckDependencies();
  EXPECT_FALSE(list.CheckDependencies());
  EXPECT_EQ(list.LastError(), "35035(B)") << "the last in their order, not in time";
  EXPECT_EQ(list.LastError(), "");
}

TEST_F(SetupListTest, AnItemOutsideTheNumbersIsNamed) {
  Load("BLOCK SETUPLIST\nBLOCK APPLICATION\nEND\n");
  for (const std::int32_t lNumber : {-1, 0, 2}) {
    try {
      list.MenuItems().Item(lNumber);
      ADD_FAILURE() << lNumber;
    } catch (const std::out_of_range& error) {
      EXPECT_EQ(error.what(), "There is no item " + std::to_string(lNumber) + " in a list of 1.");
    }
  }
  EXPECT_THROW(list.ActiveItem(), std::out_of_range);
  const auto item = list.MenuItems().Item(1);
  list.Terminate();
  EXPECT_EQ(item->Status(), "35015") << "an item lives as long as somebody holds it";
}

}  // namespace
}  // namespace trelin
