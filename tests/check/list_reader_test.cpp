#include "check/list_reader.h"

#include "tests/check/suite_folder.h"
#include "texts/messages.h"

namespace trelin {
namespace {

using ListReader = CheckTest;

const std::string S = "BLOCK SETUPLIST\n", E = "END\n", EE = "END\nEND\n";
const std::string Rest = "PRODUCTCODE=A\nREVISION=1\nINSTALLFILE=setup.exe\n";
const std::string ARest = "PRODUCT=A\n" + Rest;
const std::string A = "BLOCK APPLICATION\n" + ARest;  // a product of five lines without its END
const std::string B =
    "BLOCK APPLICATION\nPRODUCT=B\nPRODUCTCODE=B\nREVISION=1\nINSTALLFILE=setup.exe\n";
const std::string NRest = "TITLE=B\nPRODUCTCODE=B\nREVISION=1\n";
const std::string N = "BLOCK DEPENDENCY\n" + NRest;  // and a prerequisite of four
const std::string Far(32767, 'x');

// What each fault of the format gives, and that nothing else comes of it.
TEST_F(ListReader, AFaultIsReportedOnce) {
  const struct {
    const char* pWhat;
    std::string sText, sFindings;
  } cases[] = {
      {"clean", S + A + EE + "; end\n\n", ""},
      {"clean, CR alone, tabs", "\tBLOCK\tSETUPLIST\rEND\r", ""},
      {"empty", "", "0:1 error must-begin\n"},
      {"comments only", "; a\n; b\n", "2:1 error must-begin\n"},
      {"an entry first", "TITLE = x\n" + S + A + EE, "1:1 error must-begin\n"},
      {"a product first", A + E, "1:7 error wrong-block\n"},
      {"a misspelt list", "BLOCK SETUPLST\n" + A + EE, "1:7 error wrong-block\n"},
      {"no statement", S + "  Setup\n" + A + EE, "2:3 error not-understood\n"},
      {"BLOCK misspelt", S + "\tBLCOK APPLICATION\n" + ARest + EE, "2:2 error not-understood\n"},
      {"BLOCK misspelt at first", "BLOK SETUPLIST\n" + A + EE, "1:1 error not-understood\n"},
      {"END misspelt", S + A + "EDN\n" + B + "ENDE\nend\n",
       "7:1 error not-understood\n13:1 error not-understood\n"},
      {"entries without an equals sign",
       S + "BLOCK APPLICATION\nProduct A\nPRODUCTCODE: A\nREVISION\t1\nINSTALLFILE setup.exe\n" +
           EE,
       "3:1 error not-understood\n4:1 error not-understood\n5:1 error not-understood\n"
       "6:1 error not-understood\n"},
      {"a misspelt product", S + "BLOCK APLICATION\n" + ARest + N + EE + B + EE,
       "2:7 error wrong-block\n"},
      {"another word", S + "BLOCK PRODUCT\n" + ARest + EE, "2:7 error wrong-block\n"},
      {"no block type", S + "BLOCK\n" + ARest + EE, "2:1 error wrong-block\n"},
      {"a misspelt prerequisite", S + A + "BLOCK DEPENDANCY\n" + NRest + EE + B + EE,
       "7:7 error wrong-block\n"},
      {"a prerequisite of the list", S + N + E + B + EE, "2:7 error wrong-block\n"},
      {"a product without END", S + A + B + EE, "7:7 error wrong-block\n"},
      {"two products without END", S + A + B + A + EE,
       "7:7 error wrong-block\n12:7 error wrong-block\n13:9 warning repeated-title\n"
       "14:13 error repeated-code\n"},
      {"a product in a product", S + A + B + EE + E, "7:7 error wrong-block\n"},
      {"a prerequisite without END", S + A + N + N + EE + B + EE,
       "11:7 error wrong-block\n13:13 warning repeated-prerequisite\n"},
      {"a prerequisite in one", S + A + N + N + EE + E + B + EE, "11:7 error wrong-block\n"},
      {"prerequisite and product without END", S + A + N + B + EE, "11:7 error wrong-block\n"},
      {"no END of the list", S + A + E, "1:1 warning missing-end\n"},
      {"no END at all", S + A, "1:1 warning missing-end\n2:1 warning missing-end\n"},
      {"an END too many", S + A + EE + B + EE, "9:1 error after-end\n"},
      {"a second list", S + E + "BLOCK SETUPLIST\nTITEL = x\n", "3:1 error after-end\n"},
      {"entries behind the end", S + E + "\nTITLE = x\nTITLE = y\n", "4:1 error after-end\n"},
      {"text behind the end", S + E + "the end\n", "3:1 error not-understood\n"},
      {"a strange block", S + "BLOCK OPTIONS\nLANG=x\nBLOCK X\nEND\nEND\n" + A + EE,
       "2:7 error wrong-block\n"},
      {"a list in the list", S + S + "TITLE=x\n" + A + EE + B + EE, "2:7 error wrong-block\n"},
      {"no word BLOCK", S + "APPLICATION\n" + ARest + "Dependency X\n" + NRest + EE + B + EE,
       "2:1 error not-understood\n7:1 error not-understood\n"},
      {"an END too many behind a prerequisite",
       S + "BLOCK APPLICATION\n" + N + EE + ARest + E + B + EE, "9:1 error after-end\n"},
      {"the same in the last product", S + B + E + "BLOCK APPLICATION\n" + N + EE + ARest + EE,
       "15:1 error after-end\n"},
      {"entries of a product in the list", S + A + E + "IMAGE=\n" + B + EE,
       "8:1 error unknown-key\n"},
      {"a byte order mark", "\xEF\xBB\xBF" + S + A + EE, "1:1 error byte-order-mark\n"},
      {"a mark before a comment", "\xEF\xBB\xBF; a = b\n" + S + E, "1:1 error byte-order-mark\n"},
      {"UTF-16", {"\xFF\xFE\x42\0L\0O\0C\0K\0", 12}, "1:1 error not-ansi\n"},

      {"an equals sign at the last position", S + Far.substr(1) + "=1\nEND\n",
       "2:1 error unknown-key\n2:32768 warning line-too-long\n"},
      {"one behind it", S + Far + "=1\nx\nEND\n",
       "2:1 error line-too-long\n3:1 error not-understood\n"},
      {"a tab behind it", S + ";\n" + Far + "\t=1\n;\nx\nEND\n",
       "3:1 error line-too-long\n5:1 error not-understood\n"},
      {"both, one after the other", S + Far + "=1\nx=" + Far + "\t\nx\nEND\n",
       "2:1 error line-too-long\n3:1 error line-too-long\n4:1 error not-understood\n"},
      {"a long value", S + "TITLE = " + Far + "\nEND\n", "2:32768 warning line-too-long\n"},
      {"a long comment", S + ";" + Far + "\nEND\n", "2:32768 warning line-too-long\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(Check(c.sText), c.sFindings) << c.pWhat;
}

// The words are those of the launcher, with the line's number in the file.
TEST_F(ListReader, TheWordsAreTheLaunchersOwn) {
  const std::string sApp = "BLOCK APPLICATION\n";
  const std::pair<std::string, std::string> cases[] = {
      {S + "\nx\n", FormatResourceString(TextNumber::LineNotUnderstood, 3)},
      {"TITLE = x\n", FormatResourceString(TextNumber::NoBeginning, 1)},
      {"BLOCK x\n", FormatResourceString(TextNumber::WrongBlock, "BLOCK", 1, "SETUPLIST", "X")},
      {S + "BLOCK y\n",
       FormatResourceString(TextNumber::WrongBlock, "BLOCK", 2, "APPLICATION", "Y")},
      {S + sApp + "BLOCK Z\n",
       FormatResourceString(TextNumber::WrongBlock, "BLOCK", 3, "DEPENDENCY", "Z")},
      {S + sApp + "BLOCK DEPENDENCY\nBLOCK\n",
       FormatResourceString(TextNumber::BlockInDependency, 4, "")},
      {S + "END\nBLOCK x\n", FormatResourceString(TextNumber::AfterTheEnd, 3)},
  };
  for (const auto& [sText, sMessage] : cases) {
    const CheckedList list = Read(sText).list;
    EXPECT_EQ(list.faults.at(0).sMessage + "\n\n", sMessage.substr(0, sMessage.find("\n\n") + 2));
  }
  EXPECT_EQ(
      ReadCheckedList("a.cfg", TheSystem().OpenInput(ProgramPath(folder / "TRELIN.CFG"))).sName,
      "a.cfg");
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
