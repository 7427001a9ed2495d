#include "check/mend.h"

#include "check/new_suite.h"
#include "check/records.h"
#include "seam/platform_error.h"
#include "tests/check/suite_folder.h"

namespace trelin {
namespace {

class MendTest : public CheckTest {
 protected:
  Manuscript Mended(const std::string& sText) {
    Suite suite = {{}, ProgramPath(folder / ""), ProgramPath(folder / "")};
    suite.list.sName = "TRELIN.CFG";
    return Mend(sText, suite);
  }
};

TEST_F(MendTest, MendsWhatHasOneSafeAnswer) {
  const std::string sLeft = "BLOCK X\nBLOCK APPLICATION\nPRODUCT = \xE4\nCOLOR = 1\nEND\nBLOCK X\n";
  folder.Write("read me.exe", "MZ");
  const struct {
    const char* sCase;
    std::string sBefore, sAfter;
  } cases[] = {
      {"nothing", "; \xE4 \nBLOCK SETUPLIST\nEND", "; \xE4 \nBLOCK SETUPLIST\nEND"},
      {"nothing that is safe", sLeft + "END\nEND\n", sLeft + "END\nEND\n"},
      {"words", "BLCOK SETUPLIST X\r\n\tBLOCK APPLICATON\r\nREVISON = 2\r\nProduct: A \r\nENDE",
       "BLOCK SETUPLIST X\r\n\tBLOCK APPLICATION\r\nREVISION = 2\r\nProduct = A "
       "\r\nEND\r\nEND\r\n"},
      {"keys that are there already",
       "BLOCK SETUPLIST\nBLOCK APPLICATION\nREVISON=1\nREVISON=2\nPRODUCT=1\nPRODUT=2\nEND\nEND\n",
       "BLOCK SETUPLIST\nBLOCK "
       "APPLICATION\nREVISION=1\nREVISON=2\nPRODUCT=1\nPRODUT=2\nEND\nEND\n"},
      {"ENDs",
       "BLOCK SETUPLIST\n  BLOCK APPLICATION A\n    BLOCK DEPENDENCY\n\n"
       "  ; B\n  BLOCK APPLICATION B\n\n",
       "BLOCK SETUPLIST\n  BLOCK APPLICATION A\n    BLOCK DEPENDENCY\n    END\n  END\n\n"
       "  ; B\n  BLOCK APPLICATION B\n  END\nEND\n\n"},
      {"UTF-8",
       "\xEF\xBB\xBF"
       "BLOCK SETUPLIST\nTITLE = \xC3\xA4\nEND\n",
       "BLOCK SETUPLIST\nTITLE = \xE4\nEND\n"},
      {"UTF-8 that the code page lacks", "BLOCK SETUPLIST\nTITLE = \xCE\xA9\nEND\n",
       "BLOCK SETUPLIST\nTITLE = \xCE\xA9\nEND\n"},
      {"UTF-8 that would begin as UTF-16 does", "\xC3\xBF\xC3\xBE=\nBLOCK SETUPLIST\nEND\n",
       "\xC3\xBF\xC3\xBE=\nBLOCK SETUPLIST\nEND\n"},
      {"UTF-16", std::string("\xFE\xFF\0B\0L\0O\0C\0K\0 \0S\0E\0T\0U\0P\0L\0I\0S\0T\0\n", 34),
       "BLOCK SETUPLIST\nEND\n"},
      {"UTF-16 that the code page lacks",
       {"\xFF\xFE\x26\x04\r\0\n\0\n\0", 10},
       {"\xFF\xFE\x26\x04\r\0\n\0\n\0", 10}},
      {"line ends", "; 1\r\n; 2\n; 3\r\nBLOCK SETUPLIST\rEND",
       "; 1\r\n; 2\r\n; 3\r\nBLOCK SETUPLIST\r\nEND"},
      {"files",
       "BLOCK SETUPLIST\nBLOCK APPLICATION\nIMAGE = GOOD.bmp\nINSTALLFILE = \"Setup.exe\"\n"
       "READMEFILE = \"Read Me.exe\" x\nEND\nBLOCK APPLICATION\nIMAGE = \"none.bmp\"\nEND\nEND\n",
       "BLOCK SETUPLIST\nBLOCK APPLICATION\nIMAGE = good.bmp\nINSTALLFILE = setup.exe\n"
       "READMEFILE = read me.exe x\nEND\nBLOCK APPLICATION\nIMAGE = \"none.bmp\"\nEND\nEND\n"},
  };
  for (const auto& c : cases) {
    const Manuscript mended = Mended(c.sBefore);
    EXPECT_EQ(mended.Text(), c.sAfter) << c.sCase;
    EXPECT_EQ(mended.ChangedLines() > 0, c.sBefore != c.sAfter) << c.sCase;
    EXPECT_EQ(Mended(c.sAfter).Diff(""), "") << c.sCase << ", a second time";
  }
}

TEST_F(MendTest, ShowsWhatItWouldChange) {
  const std::string sList =
      "BLOCK SETUPLST\n;\n;\n;\n;\nTITEL = 1\n;\n;\n;\n;\n;\n;\n;\nTITEL: 2\nEND OF IT\nBLOCK "
      "APPLICATION";
  EXPECT_EQ(
      Mended(sList).Diff("list"),
      "--- list\n+++ list\n@@ -1,9 +1,9 @@\n-BLOCK SETUPLST\n+BLOCK SETUPLIST\n ;\n ;\n ;\n ;\n"
      "-TITEL = 1\n+TITLE = 1\n ;\n ;\n ;\n");
  EXPECT_EQ(Mended("BLOCK SETUPLIST\rENDE\r").Diff("x"), "Binary files x and x differ\n");
}

TEST_F(CheckTest, ANewSuiteIsCleanAndHasAPictureOfADial) {
  WriteNewSuite(ProgramPath(folder / "new"));
  const std::string sPicture = FileBytes(folder / "new/picture.bmp");
  Suite suite = {{}, ProgramPath(folder / "new"), ProgramPath(folder / "new")};
  suite.list =
      ReadCheckedList("TRELIN.CFG", system.OpenInput(ProgramPath(folder / "new/TRELIN.CFG")));
  EXPECT_EQ(Summary(CheckSuite(suite)), "");
  const auto isDrawn = [&](int x, int y) {
    return (static_cast<unsigned char>(sPicture[static_cast<std::size_t>(62 + 4 * y + x / 8)]) >>
                (7 - x % 8) &
            1) != 0;
  };
  for (const auto& [x, y] : {std::pair(2, 15), {29, 16}, {15, 2}, {16, 29}, {18, 18}})
    EXPECT_TRUE(isDrawn(x, y)) << x << ", " << y;
  for (const auto& [x, y] : {std::pair(0, 0), {31, 31}, {31, 0}, {0, 31}, {12, 12}, {10, 20}})
    EXPECT_FALSE(isDrawn(x, y)) << x << ", " << y;
  EXPECT_THROW(WriteNewSuite(ProgramPath(folder / "new")), PlatformError);
}

TEST_F(CheckTest, RecordsSayInWhichStatesProductsAre) {
  const CheckedList list = Read(
                               "BLOCK SETUPLIST\nBLOCK APPLICATION\nPRODUCTCODE = A\nREVISION = 2\n"
                               "BLOCK DEPENDENCY\nPRODUCTCODE = R\nREVISION = 3\n")
                               .list;
  const std::string sLog =
      "Windows Registry Editor Version "
      "5.00\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\InstallLog]\n";
  const std::pair<WantedState, const char*> cases[] = {
      {{"a", "installed"}, "\"a\"=\"2\"\n"},
      {{"A", "older"}, "\"A\"=\"!2\"\n"},
      {{"R", "newer"}, "\"R\"=\"3+\"\n"},
      {{"R", "not-installed"}, ""},
      {{"A", "damaged"}, "\"A\"=\"2\"\n\"ACheckFile\"=\"a file that is missing\"\n"},
  };
  for (const auto& [state, pRecords] : cases)
    EXPECT_EQ(RecordsOf(list, {state}), sLog + pRecords) << state.sState;
  EXPECT_THROW(RecordsOf(list, {{"X", "older"}}), std::invalid_argument);
}

}  // namespace
}  // namespace trelin
