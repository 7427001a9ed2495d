#include "check/nearest.h"
#include "check/revision_order.h"
#include "tests/check/suite_folder.h"
#include "texts/messages.h"

namespace trelin {
namespace {

// What is in the block of a product without a fault, in four lines.
std::string ProductEntries(const std::string& sCode, const std::string& sRevision = "1") {
  return "PRODUCT = Product " + sCode + "\r\nPRODUCTCODE = " + sCode +
         "\r\nREVISION = " + sRevision + "\r\nINSTALLFILE = setup.exe\r\n";
}

// The starts of the blocks and their end, and blocks without one.
const std::string S = "BLOCK SETUPLIST\n", P = "BLOCK APPLICATION\n", D = "BLOCK DEPENDENCY\n";
const std::string E = "END\n", EE = E + E;
const std::string ARest = ProductEntries("A"), A = P + ARest, B = P + ProductEntries("B");
const std::string NRest = "TITLE = Product B\nPRODUCTCODE = B\nREVISION = 1\n", N = D + NRest;
const std::string Far(32767, 'x');

class ListReader : public CheckTest {
 protected:
  // pSays stands in the messages and hints.
  void Expect(const std::string& sWhat, const std::string& sList, const std::string& sFindings,
              const char* pSays) {
    const Findings findings = CheckSuite(Read(sList));
    EXPECT_EQ(Summary(findings), sFindings) << sWhat;
    std::string sAll;
    for (const Finding& finding : findings) sAll += finding.sMessage + " " + finding.sHint + "\n";
    EXPECT_NE(sAll.find(pSays), std::string::npos) << sWhat << ":\n" << sAll;
  }
};

// What each fault of the format gives, and that nothing else comes of it.
TEST_F(ListReader, AFaultIsReportedOnce) {
  const struct {
    const char* pWhat;
    std::string sText, sFindings;
    const char* pSays = "";
  } cases[] = {
      {"clean", S + A + EE + "; end\n\n", ""},
      {"clean, CR alone, tabs", "\tBLOCK\tSETUPLIST\rEND\r", ""},
      {"empty", "", "0:1 must-begin"},
      {"comments only", "; a\n; b\n", "2:1 must-begin"},
      {"nothing but a fault", "Setup\n", "1:1 not-understood"},
      {"an entry first", "TITLE = x\n" + S + A + EE, "1:1 must-begin"},
      {"a product first", A + E, "1:7 wrong-block"},
      {"a misspelt list", "BLOCK SETUPLST\n" + A + EE, "1:7 wrong-block"},
      {"no statement", S + "  Setup\n" + A + EE, "2:3 not-understood"},
      {"BLOCK misspelt", S + "\tBLKCO APPLICATION\n" + ARest + EE, "2:2 not-understood"},
      {"no word BLOCK, and the type misspelt", S + "APLICATON\n" + ARest + EE, "2:1 not-understood",
       "\"BLOCK APPLICATION\""},
      {"the same behind a product without END", S + A + "APLICATON\n" + ProductEntries("B") + EE,
       "7:1 not-understood, 7:1 wrong-block", "its END is missing"},
      {"BLOCK misspelt at first", "BLOK SETUPLIST\n" + A + EE, "1:1 not-understood"},
      {"END misspelt", S + A + "EDN\n" + B + "ENDALL\nend\n",
       "7:1 not-understood, 13:1 not-understood"},
      {"no END", S + P + "ADD\n" + ARest + EE, "3:1 not-understood"},
      {"entries without an equals sign",
       S + P + "Product A\nPRODUCTCODE: A\nREVISION\t1\nINSTALLFILE setup.exe\n" + EE,
       "3:1 not-understood, 4:1 not-understood, 5:1 not-understood, 6:1 not-understood"},
      {"a misspelt product", S + A + "BLOCK APLICTON\n" + ProductEntries("B") + EE,
       "7:7 wrong-block"},
      {"another word", S + "BLOCK PRODUCT\n" + ARest + "X=\n" + EE,
       "2:7 wrong-block, 7:1 unknown-key", "It is read as a block APPLICATION."},
      {"no block type", S + "BLOCK\n" + ARest + EE, "2:1 wrong-block"},
      {"a misspelt prerequisite", S + A + "BLOCK DEPENDANCY\n" + NRest + EE + B + EE,
       "7:7 wrong-block"},
      {"a prerequisite of the list", S + N + E + B + EE, "2:7 wrong-block"},
      {"a product without END", S + A + B + EE, "7:7 wrong-block",
       "APPLICATION that begins in line 2 is still open here: its END is missing."},
      {"two products without END", S + A + B + A + EE,
       "7:7 wrong-block, 12:7 wrong-block, 13:11 repeated-title?, 14:15 repeated-code"},
      {"a product in a product", S + A + B + EE + E, "7:7 wrong-block"},
      {"a prerequisite without END", S + A + N + N + EE + B + EE,
       "11:7 wrong-block, 13:15 repeated-prerequisite?"},
      {"a prerequisite in one", S + A + N + N + EE + E + B + EE, "11:7 wrong-block"},
      {"prerequisite and product without END", S + A + N + B + EE, "11:7 wrong-block"},
      {"no END of the list", S + A + E, "1:1 missing-end?"},
      {"no END at all", S + A, "1:1 missing-end?, 2:1 missing-end?",
       "SETUPLIST that begins here has no END."},
      {"an END too many", S + A + EE + B + EE, "9:1 after-end",
       "END in line 8: there may be one END too many"},
      {"a second list", S + E + "BLOCK SETUPLIST\nTITEL = x\n", "3:1 after-end"},
      {"entries behind the end", S + E + "\nTITLE = x\nTITLE = y\n", "4:1 after-end"},
      {"text behind the end", S + E + "the end\n", "3:1 not-understood",
       "behind the END of the list in line 2,"},
      {"a strange block", S + "BLOCK OPTIONS\nLANG=x\nBLOCK X\nEND\nEND\n" + A + EE,
       "2:7 wrong-block", "What is in it is not looked at."},
      {"a list in the list", S + S + "TITLE=x\n" + A + EE + B + EE, "2:7 wrong-block"},
      {"no word BLOCK", S + "APPLICATION\n" + ARest + "Dependency X\n" + NRest + EE + B + EE,
       "2:1 not-understood, 7:1 not-understood"},
      {"an END too many behind a prerequisite", S + P + N + EE + ARest + E + B + EE,
       "9:1 after-end", "The END in line 8 is one too many"},
      {"the same in the last product", S + B + E + P + N + EE + ARest + EE, "15:1 after-end"},
      {"entries of a product in the list", S + A + E + "IMAGE=\n" + B + EE, "8:1 unknown-key"},
      {"a byte order mark", "\xEF\xBB\xBF" + S + A + EE, "1:1 byte-order-mark", "Line 1 "},
      {"a mark before a comment", "\xEF\xBB\xBF; a = b\n" + S + E, "1:1 byte-order-mark"},
      {"UTF-16", {"\xFF\xFE\x42\0L\0O\0C\0K\0", 12}, "1:1 not-ansi"},

      {"an equals sign too far, a tab too far", S + Far + "=1\nx=" + Far + "\t\nx\nEND\n",
       "2:1 line-too-long, 3:1 line-too-long, 4:1 not-understood"},
      {"a long value", S + "TITLE = " + Far + "\nEND\n", "2:32768 line-too-long?"},
  };
  for (const auto& c : cases) Expect(c.pWhat, c.sText, c.sFindings, c.pSays);
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
      {S + P + D + "BLOCK\n", FormatResourceString(BlockInDependency, 4, "")},
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
  EXPECT_EQ(product.entries[0]->Key(), "PRODUCT");
  EXPECT_EQ(product.entries[0]->Value(), "A = B");
  EXPECT_EQ(product.entries[0]->KeyPlace(), (Place{3, 3, 7}));
  EXPECT_EQ(product.entries[0]->ValuePlace(), (Place{3, 13, 5}));
  EXPECT_EQ(product.entries[1]->ValuePlace(), (Place{4, 8, 1})) << "behind the equals sign";
  EXPECT_EQ(list.statements[1].KeyPlace(), (Place{2, 9, 11}));
}

// A whole product, of six lines; sMore, if any, stands in front of its END.
std::string Product(const std::string& sCode, const std::string& sRevision,
                    const std::string& sMore = "") {
  return P + ProductEntries(sCode, sRevision) + sMore + E;
}

// A prerequisite, of five lines.
std::string Needs(const std::string& sCode, const std::string& sRevision,
                  const std::string& sTitle = "") {
  return D + "TITLE = " + (sTitle.empty() ? "Product " + sCode : sTitle) +
         "\nPRODUCTCODE = " + sCode + "\nREVISION = " + sRevision + "\n" + E;
}

class ListChecks : public ListReader {
 protected:
  struct Case {
    std::string sText;
    const char* pFindings;
    const char* pSays = "";
  };
};

// Each list begins with BLOCK SETUPLIST, the first product in line 2.
TEST_F(ListChecks, OfProductsAndTheirPrerequisites) {
  const std::string sNothing = P + E, A1 = Product("A", "1");
  const Case cases[] = {
      // Nothing is found: every known key, a lower revision than is offered and any one, two that
      // only within one product are the wrong way round, the longest, two ways to one product.
      {"TITLE=x\n" +
           Product("A", "2.10",
                   "DESCRIPTION=d\nIMAGE=good.bmp\nUNINSTALLNAME=u\nREADMEFILE=readme.exe\n") +
           Product("B", "2.9", Needs("A", "2.09")) +
           Product("C", std::string(255, '1'), Needs("B", "") + Needs("A", "2.09")),
       ""},
      {"NAME=x\n" + A1 + Product("B", "1", "Titel = x\n" + Needs("A", "1\n =x")),
       "2:1 unknown-key, 14:1 unknown-key, 19:2 unknown-key"},
      {Product("A", "1", "product=x\n" + Needs("A", "1\nTitle=x", "x")),
       "7:1 repeated-key?, 10:15 circle, 12:1 repeated-key?",
       "PRODUCT is given twice in this block, first in line 3."},
      {P + "PRODUCT=\nINSTALLFILE =\nPRODUCTCODE= \nREVISION=\nEND\n",
       "3:9 no-title, 4:14 no-installer?, 5:13 no-code?, 6:10 no-revision?"},
      {P + "PRODUCT=A\nINSTALLFILE=setup.exe\nPRODUCTCODE=A\nEND\n", "2:1 no-revision"},
      {Product("A", "1", D + E), "7:1 no-title?, 7:1 no-code"},
      {Product("A", "1", "PRODUCT=\n"), "7:1 repeated-key?, 7:9 no-title"},

      {Product("a", "1") + A1, "10:15 repeated-code",
       "\"A\" is that of \"Product a\" (line 2), too"},
      {sNothing + sNothing + A1,  // no code is none
       "2:1 no-title, 2:1 no-installer?, 2:1 no-code?, 2:1 no-revision?, "
       "4:1 no-title, 4:1 no-installer?, 4:1 no-code?, 4:1 no-revision?"},
      {Product("RUNTIME", "1", Needs("RUNTIEM", "1")) + Product("RUNTIEMAB", "1"),
       "9:15 not-offered?", "The code that is nearest to it is \"RUNTIME\"."},
      {Product("Ab", "1") + Product("C", "1", Needs("aB", "1", "x")), "14:9 other-title?",
       "\"x\", but the product that offers it is \"Product Ab\""},
      {Product("A", "1.0") + Product("B", "1", Needs("A", "1.1")), "16:12 revision-not-offered",
       "\"1.1\" is required, but \"Product A\" (line 2) offers \"1.0\""},
      {Product("A", "2.10") + Product("B", "1", Needs("A", "2.9")), "16:12 revision-order",
       "\"2.10\" (line 5) and \"2.9\" (line 16)"},
      {Product("A", "2.9") + Product("B", "1", Needs("A", "2.10")), "16:12 revision-order",
       "Write \"2.09\" and \"2.10\""},
      {Product("A", "2.1") + Product("B", "1", Needs("A", "2.10")), "16:12 revision-not-offered"},
      {Product("A", "1", Needs("X", "9") + Needs("X", "10")),
       "9:15 not-offered?, 14:15 repeated-prerequisite?, 14:15 not-offered?, 15:12 revision-order"},
      {A1 + Product("acheckfile", "1"), "10:15 code-of-check-file",
       "is \"A\" (line 4) followed by CheckFile"},
      {Product("A", std::string(256, '1')), "5:12 record-too-long"},
      {A1 + Product("B", "1", "PRODUCT=Product A\n"), "13:1 repeated-key?, 13:9 repeated-title?",
       "in line 3, too"},

      {"; trelin-check: allow no-installer,no-code\n" + P + "PRODUCT=A\n" + E + P +
           "PRODUCT=B\nPRODUCTCODE=B\nREVISION=1\n" + E,
       "3:1 no-revision?, 6:1 no-installer?"},
      {Product("A", "1", " ;trelin-check:\tallow unknown-key\n\n; x\nX=1\nY=1\n"),
       "11:1 unknown-key"},
      {"; trelin-check: allow circle, no-such\n" + Product("A", "1", "X=1\n"),
       "2:23 idle-allowance?, 2:31 idle-allowance?, 8:1 unknown-key"},

      {Product("A", "1", Needs("A", "1")), "9:15 circle", "A product needs itself: "},
      {Product("A", "1", Needs("B", "1")) + Product("B", "1", Needs("C", "1")) +
           Product("C", "1", Needs("A", "1")),
       "31:15 circle",
       "\"Product A\" (line 2) needs \"Product B\" (line 13), which needs \"Product C\" (line "
       "24), which needs \"Product A\" (line 2)."},
  };
  for (const Case& c : cases) Expect(c.sText, S + c.sText + E, c.pFindings, c.pSays);
}

// The entry is in the third line, within a product without another fault.
TEST_F(ListChecks, OfOneEntry) {
  for (const char* sName : {"read", "read me.exe", "help it.exe", "My Docs/readme.exe", "tool.exe",
                            "setup.msi", "readme.txt"})
    folder.Write(sName, "MZ");
  std::string sWords;
  while (sWords.size() < 300) sWords += "Measures gears and shafts. ";
  const Case cases[] = {
      {"REVISON=1", "3:1 unknown-key",
       "\"REVISON\" in a block APPLICATION. It beeps and leaves it out. The known key that is "
       "nearest to it is REVISION."},
      {"TITLE=1", "3:1 unknown-key", "PRODUCT. It is a key of a block SETUPLIST or DEPENDENCY."},
      {"END=x", "3:1 unknown-key", "count as END has no equals sign"},

      {"IMAGE = GOOD.BMP", ""},
      {"IMAGE = \"good.bmp\"", "3:9 picture-missing", "Quotation marks"},
      {"IMAGE = My Docs", "3:9 picture-missing"},
      {"IMAGE = bad.bmp", "3:9 picture-unreadable"},
      {"IMAGE = large.png", "3:9 picture-size?", "48 by 48 pixels"},
      {"IMAGE =", ""},
      {"INSTALLFILE = Setup.EXE", ""},
      {"INSTALLFILE = My Docs\\readme.exe", ""},
      {"INSTALLFILE = tool", ""},
      {"INSTALLFILE = My Docs", "3:15 installer-missing"},
      {"INSTALLFILE = setup.exe /q", "3:15 installer-missing", "no arguments"},
      {"INSTALLFILE = setup.msi", "3:15 not-a-program", "msiexec"},
      {"READMEFILE = readme.exe some readme.txt /x.y", ""},
      {"READMEFILE = readme.exe gone.txt", "3:14 argument-missing?", "\"gone.txt\""},
      {"READMEFILE = My Docs\\readme.exe readme.txt", ""},
      {"READMEFILE = C:\\readme.exe", "3:14 read-me-missing", "full path"},
      {"READMEFILE = My Docs\\missing.exe", "3:14 read-me-missing"},
      {"READMEFILE = \"readme.exe\" x", "3:14 read-me-missing"},
      {"READMEFILE = help it.exe readme.txt", "3:14 read-me-ambiguous?"},
      {"READMEFILE = read me.exe", "3:14 read-me-ambiguous?"},
      {"READMEFILE = readme.TXT", "3:14 not-a-program", "opens it"},

      {"DESCRIPTION = Pr\xFC\x66stand f\xFCr\tZ\xE4hne", ""},
      {"DESCRIPTION = \xC0\xC1\xC2 \x80 \x93x\x94 \xB5m \xB0", ""},
      {"DESCRIPTION = Pr\xC3\xBC\x66stand", "3:17 not-ansi", "is UTF-8"},
      {"DESCRIPTION = Pr\xC3\xBC\x66 \xCE\xA9", "3:21 not-ansi", "Write it in other characters"},
      {"; Pr\xC3\xBC\x66stand", ""},
      {"DESCRIPTION = \xC1\xBF \xF5\xA1\xA1\xA1", ""},
      {"DESCRIPTION = QUALIT\xC9\x99\r\nUNINSTALLNAME = \xFC", ""},
      {"DESCRIPTION = Pr\xC3\xBC\x66stand\r\nUNINSTALLNAME = \xFC", "3:17 not-ansi"},
      {"DESCRIPTION = a\x81", "3:16 not-ansi", "the code 81"},
      {"DESCRIPTION = a\x01", "3:16 not-ansi", "the control character 01"},

      {"DESCRIPTION = " + sWords.substr(0, 135), ""},
      {"DESCRIPTION = " + sWords, "3:15 long-text?", "The description"},
      {"PRODUCT = " + sWords.substr(0, 80), "3:11 long-text?", "The title"},
  };
  for (const Case& c : cases) {
    std::string sList = S + P + c.sText + "\r\n";
    for (const std::string sEntry :
         {"PRODUCT = A", "PRODUCTCODE = A", "REVISION = 1", "INSTALLFILE = setup.exe"})
      if (!sEntry.starts_with(c.sText.substr(0, c.sText.find('=')))) sList += sEntry + "\r\n";
    Expect(c.sText, sList + EE, c.pFindings, c.pSays);
  }
}

TEST_F(ListChecks, AsManyProductsAsTheMenuCanNumber) {
  std::string sText = S;
  for (int i = 0; i < 32767; ++i) sText += P + E;
  const auto checks = KeyChecks();
  const auto check = std::find_if(checks.begin(), checks.end(), [](const trelin::Check& c) {
    return c.pRule->pName == std::string("too-many-products");
  });
  for (const char* sFindings : {"", "65536:1 too-many-products"}) {
    Findings findings;
    Report report(check->pRule, findings);
    check->run(Read(sText), report);
    EXPECT_EQ(Summary(findings), sFindings);
    sText += P + E;
  }
}

TEST(RevisionOrder, NumbersCompareByValue) {
  const std::pair<const char*, const char*> cases[] = {
      {"2.9", "2.10"},  {"2.9", "2.9.1"}, {"9", "10.0"},   {"2.1", "2.1a"},
      {"2.1a", "2.1b"}, {"", "1"},        {"2.10", "2.a"}, {"1.0 beta 9", "1.0 beta 10"}};
  for (const auto& [pLower, pHigher] : cases) {
    EXPECT_TRUE(CompareByNumbers(pLower, pHigher) < 0) << pLower << " " << pHigher;
    EXPECT_TRUE(CompareByNumbers(pHigher, pLower) > 0) << pLower << " " << pHigher;
    const auto [sLower, sHigher] = SortableSpelling(pLower, pHigher);
    EXPECT_LT(sLower, sHigher);
  }
  EXPECT_TRUE(CompareByNumbers("2.09", "2.9") == 0);
  EXPECT_TRUE(CompareByNumbers("2.00", "2.0") == 0);
}

TEST(NearestWord, CountsWhatATypistDoes) {
  const struct {
    const char *pOne, *pOther;
    std::size_t nDistance;
  } cases[] = {
      {"", "ABC", 3},    {"ABC", "ABC", 0}, {"ABC", "AC", 1},           {"ABC", "ABXC", 1},
      {"ABC", "AXC", 1}, {"ABC", "ACB", 1}, {"REVISON", "REVISION", 1}, {"ABCD", "BADC", 2}};
  for (const auto& c : cases) {
    EXPECT_EQ(EditDistance(c.pOne, c.pOther), c.nDistance) << c.pOne << " " << c.pOther;
    for (std::size_t nMost = 0; nMost < 4; ++nMost)
      EXPECT_EQ(IsNear(c.pOne, c.pOther, nMost), c.nDistance <= nMost)
          << c.pOne << " " << c.pOther << " " << nMost;
  }
}

}  // namespace
}  // namespace trelin
