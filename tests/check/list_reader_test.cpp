#include "check/list_reader.h"

#include "tests/check/suite_folder.h"
#include "texts/messages.h"

namespace trelin {
namespace {

using ListReader = CheckTest;

constexpr const char* Begin = "BLOCK SETUPLIST\n";
constexpr const char* App =
    "BLOCK APPLICATION\nPRODUCT=A\nPRODUCTCODE=A\nREVISION=1\nINSTALLFILE=setup.exe\n";

// What each fault of the format gives, and that nothing else comes of it.
TEST_F(ListReader, AFaultIsReportedOnce) {
  const std::string sBegin = Begin;
  const std::string sApp = App;
  const std::string sApp2 =
      "BLOCK APPLICATION\nPRODUCT=B\nPRODUCTCODE=B\nREVISION=1\nINSTALLFILE=setup.exe\n";
  const std::string sNeed = "BLOCK DEPENDENCY\nTITLE=B\nPRODUCTCODE=B\nREVISION=1\n";
  const struct {
    const char* pWhat;
    std::string sText, sFindings;
  } cases[] = {
      {"clean", sBegin + sApp + "END\nEND\n; end\n\n", ""},
      {"clean, CR alone, tabs", "\tBLOCK\tSETUPLIST\rEND\r", ""},
      {"empty", "", "0:1 error must-begin\n"},
      {"comments only", "; a\n; b\n", "2:1 error must-begin\n"},
      {"an entry first", "TITLE = x\n" + sBegin + sApp + "END\nEND\n", "1:1 error must-begin\n"},
      {"a product first", sApp + "END\n", "1:7 error wrong-block\n"},
      {"a misspelt list", "BLOCK SETUPLST\n" + sApp + "END\nEND\n", "1:7 error wrong-block\n"},
      {"no statement", sBegin + "  Setup\n" + sApp + "END\nEND\n", "2:3 error not-understood\n"},
      {"a misspelt keyword", sBegin + "\tBLCOK APPLICATION" + sApp.substr(17) + "END\nEND\n",
       "2:2 error not-understood\n"},
      {"a misspelt keyword at first", "BLOK SETUPLIST\n" + sApp + "END\nEND\n",
       "1:1 error not-understood\n"},
      {"a misspelt END", sBegin + sApp + "EDN\n" + sApp2 + "ENDE\nend\n",
       "7:1 error not-understood\n13:1 error not-understood\n"},
      {"entries without an equals sign",
       sBegin +
           "BLOCK APPLICATION\nProduct A\nPRODUCTCODE: A\nREVISION\t1\nINSTALLFILE setup.exe\n" +
           "END\nEND\n",
       "3:1 error not-understood\n4:1 error not-understood\n5:1 error not-understood\n"
       "6:1 error not-understood\n"},
      {"a misspelt product",
       sBegin + "BLOCK APLICATION" + sApp.substr(17) + sNeed + "END\nEND\n" + sApp2 + "END\nEND\n",
       "2:7 error wrong-block\n"},
      {"another word", sBegin + "BLOCK PRODUCT" + sApp.substr(17) + "END\nEND\n",
       "2:7 error wrong-block\n"},
      {"no block type", sBegin + "BLOCK" + sApp.substr(17) + "END\nEND\n",
       "2:1 error wrong-block\n"},
      {"a misspelt prerequisite",
       sBegin + sApp + "BLOCK DEPENDANCY" + sNeed.substr(16) + "END\nEND\n" + sApp2 + "END\nEND\n",
       "7:7 error wrong-block\n"},
      {"a prerequisite of the list", sBegin + sNeed + "END\n" + sApp2 + "END\nEND\n",
       "2:7 error wrong-block\n"},
      {"a product without END", sBegin + sApp + sApp2 + "END\nEND\n", "7:7 error wrong-block\n"},
      {"two products without END", sBegin + sApp + sApp2 + App + "END\nEND\n",
       "7:7 error wrong-block\n12:7 error wrong-block\n14:13 error repeated-code\n"},
      {"a product in a product", sBegin + sApp + sApp2 + "END\nEND\nEND\n",
       "7:7 error wrong-block\n"},
      {"a prerequisite without END",
       sBegin + sApp + sNeed + sNeed + "END\nEND\n" + sApp2 + "END\nEND\n",
       "11:7 error wrong-block\n"},
      {"a prerequisite in one",
       sBegin + sApp + sNeed + sNeed + "END\nEND\nEND\n" + sApp2 + "END\nEND\n",
       "11:7 error wrong-block\n"},
      {"prerequisite and product without END", sBegin + sApp + sNeed + sApp2 + "END\nEND\n",
       "11:7 error wrong-block\n"},
      {"no END of the list", sBegin + sApp + "END\n", "1:1 warning missing-end\n"},
      {"no END at all", sBegin + sApp, "1:1 warning missing-end\n2:1 warning missing-end\n"},
      {"an END too many", sBegin + sApp + "END\nEND\n" + sApp2 + "END\nEND\n",
       "9:1 error after-end\n"},
      {"a second list", sBegin + "END\nBLOCK SETUPLIST\nTITEL = x\n", "3:1 error after-end\n"},
      {"an entry behind the end", sBegin + "END\n\nTITLE = x\nTITLE = y\n",
       "4:1 error after-end\n"},
      {"text behind the end", sBegin + "END\nthe end\n", "3:1 error not-understood\n"},
      {"a byte order mark", "\xEF\xBB\xBF" + sBegin + sApp + "END\nEND\n",
       "1:1 error byte-order-mark\n"},
      {"a mark before a comment", "\xEF\xBB\xBF; a = b\n" + sBegin + "END\n",
       "1:1 error byte-order-mark\n"},
      {"UTF-16",
       std::string("\xFF\xFE"
                   "B\0L\0O\0C\0K\0",
                   12),
       "1:1 error not-ansi\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(Check(c.sText), c.sFindings) << c.pWhat;
}

TEST_F(ListReader, LinesThatAreTooLong) {
  const std::string sFar(32767, 'x');
  const struct {
    const char* pWhat;
    std::string sText, sFindings;
  } cases[] = {
      {"an equals sign at the last position", std::string(Begin) + sFar.substr(1) + "=1\nEND\n",
       "2:1 error unknown-key\n2:32768 warning line-too-long\n"},
      {"one behind it", std::string(Begin) + sFar + "=1\nx\nEND\n",
       "2:1 error line-too-long\n3:1 error not-understood\n"},
      {"a tab behind it", std::string(Begin) + ";\n" + sFar + "\t=1\n;\nx\nEND\n",
       "3:1 error line-too-long\n5:1 error not-understood\n"},
      {"both, one after the other", std::string(Begin) + sFar + "=1\nx=" + sFar + "\t\nx\nEND\n",
       "2:1 error line-too-long\n3:1 error line-too-long\n4:1 error not-understood\n"},
      {"a long value", std::string(Begin) + "TITLE = " + sFar + "\nEND\n",
       "2:32768 warning line-too-long\n"},
      {"a long comment", std::string(Begin) + ";" + sFar + "\nEND\n",
       "2:32768 warning line-too-long\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(Check(c.sText), c.sFindings) << c.pWhat;
}

// The words are those of the launcher, with the line's number in the file.
TEST_F(ListReader, TheWordsAreTheLaunchersOwn) {
  const struct {
    const char* pText;
    std::string sMessage;
  } cases[] = {
      {"BLOCK SETUPLIST\n\nx\n", FormatResourceString(TextNumber::LineNotUnderstood, 3)},
      {"TITLE = x\n", FormatResourceString(TextNumber::NoBeginning, 1)},
      {"BLOCK x\n", FormatResourceString(TextNumber::WrongBlock, "BLOCK", 1, "SETUPLIST", "X")},
      {"BLOCK SETUPLIST\nBLOCK y\n",
       FormatResourceString(TextNumber::WrongBlock, "BLOCK", 2, "APPLICATION", "Y")},
      {"BLOCK SETUPLIST\nBLOCK APPLICATION\nBLOCK Z\n",
       FormatResourceString(TextNumber::WrongBlock, "BLOCK", 3, "DEPENDENCY", "Z")},
      {"BLOCK SETUPLIST\nBLOCK APPLICATION\nBLOCK DEPENDENCY\nBLOCK\n",
       FormatResourceString(TextNumber::BlockInDependency, 4, "")},
      {"BLOCK SETUPLIST\nEND\nBLOCK x\n", FormatResourceString(TextNumber::AfterTheEnd, 3)},
  };
  for (const auto& c : cases) EXPECT_EQ(Read(c.pText).list.faults.at(0).sMessage, c.sMessage);
}

TEST_F(ListReader, PlacesAndValues) {
  const CheckedList list =
      Read("BLOCK SETUPLIST\n\tblock  application  Name\n \tProduct =\tA = B \n image=\nEND\nEND\n")
          .list;
  ASSERT_EQ(list.Products().size(), 1U);
  const ListBlock& product = *list.Products()[0];
  EXPECT_EQ(product.start, (Place{2, 2, 24}));
  ASSERT_EQ(product.entries.size(), 2U);
  EXPECT_EQ(product.entries[0]->sKey, "PRODUCT");
  EXPECT_EQ(product.entries[0]->sValue, "A = B");
  EXPECT_EQ(product.entries[0]->key, (Place{3, 3, 7}));
  EXPECT_EQ(product.entries[0]->value, (Place{3, 13, 5}));
  EXPECT_EQ(product.entries[1]->value, (Place{4, 8, 1})) << "behind the equals sign";
  EXPECT_EQ(list.statements[1].key, (Place{2, 9, 11}));
}

}  // namespace
}  // namespace trelin
