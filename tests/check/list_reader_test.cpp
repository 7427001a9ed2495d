#include "check/list_reader.h"

#include "tests/check/suite_folder.h"
#include "texts/messages.h"

namespace trelin {
namespace {

using ListReader = CheckTest;

std::string EntriesOf(const std::string& sCode) {
  return "PRODUCT=" + sCode + "\nPRODUCTCODE=" + sCode + "\nREVISION=1\nINSTALLFILE=setup.exe\n";
}

const std::string S = "BLOCK SETUPLIST\n", P = "BLOCK APPLICATION\n", E = "END\n", EE = E + E;
const std::string ARest = EntriesOf("A"), A = P + ARest;  // a product of five lines without its END
const std::string B = P + EntriesOf("B");
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
      {"empty", "", "0:1 must-begin"},
      {"comments only", "; a\n; b\n", "2:1 must-begin"},
      {"an entry first", "TITLE = x\n" + S + A + EE, "1:1 must-begin"},
      {"a product first", A + E, "1:7 wrong-block"},
      {"a misspelt list", "BLOCK SETUPLST\n" + A + EE, "1:7 wrong-block"},
      {"no statement", S + "  Setup\n" + A + EE, "2:3 not-understood"},
      {"BLOCK misspelt", S + "\tBLCOK APPLICATION\n" + ARest + EE, "2:2 not-understood"},
      {"BLOCK misspelt at first", "BLOK SETUPLIST\n" + A + EE, "1:1 not-understood"},
      {"END misspelt", S + A + "EDN\n" + B + "ENDE\nend\n",
       "7:1 not-understood, 13:1 not-understood"},
      {"entries without an equals sign",
       S + P + "Product A\nPRODUCTCODE: A\nREVISION\t1\nINSTALLFILE setup.exe\n" + EE,
       "3:1 not-understood, 4:1 not-understood, 5:1 not-understood, 6:1 not-understood"},
      {"a misspelt product", S + "BLOCK APLICATION\n" + ARest + N + EE + B + EE, "2:7 wrong-block"},
      {"another word", S + "BLOCK PRODUCT\n" + ARest + EE, "2:7 wrong-block"},
      {"no block type", S + "BLOCK\n" + ARest + EE, "2:1 wrong-block"},
      {"a misspelt prerequisite", S + A + "BLOCK DEPENDANCY\n" + NRest + EE + B + EE,
       "7:7 wrong-block"},
      {"a prerequisite of the list", S + N + E + B + EE, "2:7 wrong-block"},
      {"a product without END", S + A + B + EE, "7:7 wrong-block"},
      {"two products without END", S + A + B + A + EE,
       "7:7 wrong-block, 12:7 wrong-block, 13:9 repeated-title?, 14:13 repeated-code"},
      {"a product in a product", S + A + B + EE + E, "7:7 wrong-block"},
      {"a prerequisite without END", S + A + N + N + EE + B + EE,
       "11:7 wrong-block, 13:13 repeated-prerequisite?"},
      {"a prerequisite in one", S + A + N + N + EE + E + B + EE, "11:7 wrong-block"},
      {"prerequisite and product without END", S + A + N + B + EE, "11:7 wrong-block"},
      {"no END of the list", S + A + E, "1:1 missing-end?"},
      {"no END at all", S + A, "1:1 missing-end?, 2:1 missing-end?"},
      {"an END too many", S + A + EE + B + EE, "9:1 after-end"},
      {"a second list", S + E + "BLOCK SETUPLIST\nTITEL = x\n", "3:1 after-end"},
      {"entries behind the end", S + E + "\nTITLE = x\nTITLE = y\n", "4:1 after-end"},
      {"text behind the end", S + E + "the end\n", "3:1 not-understood"},
      {"a strange block", S + "BLOCK OPTIONS\nLANG=x\nBLOCK X\nEND\nEND\n" + A + EE,
       "2:7 wrong-block"},
      {"a list in the list", S + S + "TITLE=x\n" + A + EE + B + EE, "2:7 wrong-block"},
      {"no word BLOCK", S + "APPLICATION\n" + ARest + "Dependency X\n" + NRest + EE + B + EE,
       "2:1 not-understood, 7:1 not-understood"},
      {"an END too many behind a prerequisite", S + P + N + EE + ARest + E + B + EE,
       "9:1 after-end"},
      {"the same in the last product", S + B + E + P + N + EE + ARest + EE, "15:1 after-end"},
      {"entries of a product in the list", S + A + E + "IMAGE=\n" + B + EE, "8:1 unknown-key"},
      {"a byte order mark", "\xEF\xBB\xBF" + S + A + EE, "1:1 byte-order-mark"},
      {"a mark before a comment", "\xEF\xBB\xBF; a = b\n" + S + E, "1:1 byte-order-mark"},
      {"UTF-16", {"\xFF\xFE\x42\0L\0O\0C\0K\0", 12}, "1:1 not-ansi"},

      {"an equals sign at the last position", S + Far.substr(1) + "=1\nEND\n",
       "2:1 unknown-key, 2:32768 line-too-long?"},
      {"one behind it, a tab behind it", S + Far + "=1\nx=" + Far + "\t\nx\nEND\n",
       "2:1 line-too-long, 3:1 line-too-long, 4:1 not-understood"},
      {"a long value", S + "TITLE = " + Far + "\nEND\n", "2:32768 line-too-long?"},
      {"a long comment", S + ";" + Far + "\nEND\n", "2:32768 line-too-long?"},
  };
  for (const auto& c : cases) EXPECT_EQ(Check(c.sText), c.sFindings) << c.pWhat;
}

// The words are those of the launcher, with the file's name and the line's number in it.
TEST_F(ListReader, TheWordsAreTheLaunchersOwn) {
  using enum TextNumber;
  const std::pair<std::string, std::string> cases[] = {
      {S + "\nx\n", FormatResourceString(LineNotUnderstood, 3)},
      {"TITLE = x\n", FormatResourceString(NoBeginning, 1)},
      {"BLOCK x\n", FormatResourceString(WrongBlock, "BLOCK", 1, "SETUPLIST", "X")},
      {S + "BLOCK y\n", FormatResourceString(WrongBlock, "BLOCK", 2, "APPLICATION", "Y")},
      {S + P + "BLOCK Z\n", FormatResourceString(WrongBlock, "BLOCK", 3, "DEPENDENCY", "Z")},
      {S + P + "BLOCK DEPENDENCY\nBLOCK\n", FormatResourceString(BlockInDependency, 4, "")},
      {S + E + "BLOCK x\n", FormatResourceString(AfterTheEnd, 3)},
  };
  for (const auto& [sText, sMessage] : cases) {
    std::string sWords = sMessage.substr(0, sMessage.find("\n\n"));
    EXPECT_EQ(Read(sText).list.faults.at(0).sMessage,
              sWords.replace(sWords.find("TRELIN.CFG"), 10, "A.CFG"));
  }
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
