#include "check/nearest.h"
#include "check/revision_order.h"
#include "tests/check/suite_folder.h"

namespace trelin {
namespace {

// A product without a fault, of six lines; sMore, if any, stands in front of its END.
std::string Product(const std::string& sCode, const std::string& sRevision,
                    const std::string& sMore = "") {
  return "BLOCK APPLICATION\r\nPRODUCT = Product " + sCode + "\r\nPRODUCTCODE = " + sCode +
         "\r\nREVISION = " + sRevision + "\r\nINSTALLFILE = setup.exe\r\n" + sMore + "END\r\n";
}

// A prerequisite, of five lines.
std::string Needs(const std::string& sCode, const std::string& sRevision,
                  const std::string& sTitle = "") {
  return "BLOCK DEPENDENCY\nTITLE = " + (sTitle.empty() ? "Product " + sCode : sTitle) +
         "\nPRODUCTCODE = " + sCode + "\nREVISION = " + sRevision + "\nEND\n";
}

class ListChecks : public CheckTest {
 protected:
  struct Case {
    std::string sText;
    const char* sFindings;
    const char* sSays = "";  // in their messages and hints
  };

  void Expect(const Case& c, const std::string& sList) {
    const Findings findings = CheckSuite(Read(sList));
    EXPECT_EQ(Summary(findings), c.sFindings) << c.sText;
    std::string sAll;
    for (const Finding& finding : findings) sAll += finding.sMessage + " " + finding.sHint + "\n";
    EXPECT_NE(sAll.find(c.sSays), std::string::npos) << c.sText << ":\n" << sAll;
  }
};

// Each list begins with BLOCK SETUPLIST, the first product in line 2.
TEST_F(ListChecks, OfProductsAndTheirPrerequisites) {
  const std::string sNothing = "BLOCK APPLICATION\nEND\n", A1 = Product("A", "1");
  const Case cases[] = {
      {"TITLE=x\n" + Product("A", "1",
                             "DESCRIPTION=d\nIMAGE=good.bmp\nUNINSTALLNAME=u\n"
                             "READMEFILE=readme.exe\n"),
       ""},  // every known key
      {"NAME=x\n" + A1 + Product("B", "1", "Titel = x\n" + Needs("A", "1\n =x")),
       "2:1 unknown-key, 14:1 unknown-key, 19:2 unknown-key"},
      {Product("A", "1", "product=x\n" + Needs("A", "1\nTitle=x", "x")),
       "7:1 repeated-key?, 10:15 circle, 12:1 repeated-key?",
       "PRODUCT is given twice in this block, first in line 3."},
      {"BLOCK APPLICATION\nPRODUCT=\nINSTALLFILE =\nPRODUCTCODE= \nREVISION=\nEND\n",
       "3:9 no-title, 4:14 no-installer?, 5:13 no-code?, 6:10 no-revision?"},
      {"BLOCK APPLICATION\nPRODUCT=A\nINSTALLFILE=setup.exe\nPRODUCTCODE=A\nEND\n",
       "2:1 no-revision"},
      {Product("A", "1", "BLOCK DEPENDENCY\nEND\n"), "7:1 no-title?, 7:1 no-code"},
      {Product("A", "1", "PRODUCT=\n"), "7:1 repeated-key?, 7:9 no-title"},

      {Product("a", "1") + A1, "10:15 repeated-code",
       "\"A\" is that of \"Product a\" (line 2), too"},
      {sNothing + sNothing + A1,  // no code is none
       "2:1 no-title, 2:1 no-installer?, 2:1 no-code?, 2:1 no-revision?, "
       "4:1 no-title, 4:1 no-installer?, 4:1 no-code?, 4:1 no-revision?"},
      {Product("RUNTIME", "1", Needs("RUNTIEM", "1")), "9:15 not-offered?",
       "The code that is nearest to it is \"RUNTIME\"."},
      {Product("Ab", "1") + Product("C", "1", Needs("aB", "1", "x")), "14:9 other-title?",
       "\"x\", but the product that offers it is \"Product Ab\""},
      {Product("A", "1.0") + Product("B", "1", Needs("A", "1.1")), "16:12 revision-not-offered",
       "\"1.1\" is required, but \"Product A\" (line 2) offers \"1.0\""},
      {Product("A", "1.1") + Product("B", "1", Needs("A", "1.0")), ""},
      {A1 + Product("B", "1", Needs("A", "")), ""},  // any revision
      {Product("A", "2.10") + Product("B", "1", Needs("A", "2.9")), "16:12 revision-order",
       "\"2.10\" (line 5) and \"2.9\" (line 16)"},
      {Product("A", "2.9") + Product("B", "1", Needs("A", "2.10")), "16:12 revision-order",
       "Write \"2.09\" and \"2.10\""},
      {Product("A", "2.1") + Product("B", "1", Needs("A", "2.10")), "16:12 revision-not-offered"},
      {Product("A", "2.10") + Product("B", "1", Needs("A", "2.09")), ""},
      {Product("A", "2.10") + Product("B", "2.9"), ""},  // of different products
      {Product("A", "1", Needs("X", "9") + Needs("X", "10")),
       "9:15 not-offered?, 14:15 repeated-prerequisite?, 14:15 not-offered?, 15:12 revision-order"},
      {A1 + Product("acheckfile", "1"), "10:15 code-of-check-file",
       "is \"A\" (line 4) followed by CheckFile"},
      {Product("A", std::string(255, '1')), ""},
      {Product("A", std::string(256, '1')), "5:12 record-too-long"},
      {A1 + Product("B", "1", "PRODUCT=Product A\n"), "13:1 repeated-key?, 13:9 repeated-title?",
       "in line 3, too"},

      {"; trelin-check: allow no-installer,no-code\nBLOCK APPLICATION\nPRODUCT=A\nEND\n"
       "BLOCK APPLICATION\nPRODUCT=B\nPRODUCTCODE=B\nREVISION=1\nEND\n",
       "3:1 no-revision?, 6:1 no-installer?"},
      {Product("A", "1", " ;trelin-check:\tallow unknown-key\n\n; x\nX=1\nY=1\n"),
       "11:1 unknown-key"},
      {"; trelin-check: allow circle, no-such\n" + A1,
       "2:23 idle-allowance?, 2:31 idle-allowance?"},

      {Product("A", "1", Needs("A", "1")), "9:15 circle", "A product needs itself: "},
      {Product("A", "1", Needs("B", "1")) + Product("B", "1", Needs("C", "1")) +
           Product("C", "1", Needs("A", "1")),
       "31:15 circle",
       "\"Product A\" (line 2) needs \"Product B\" (line 13), which needs \"Product C\" (line "
       "24), which needs \"Product A\" (line 2)."},
      {A1 + Product("B", "1", Needs("A", "1")) +
           Product("C", "1", Needs("B", "1") + Needs("A", "1")),
       ""},  // two ways to one product are no circle
  };
  for (const Case& c : cases) Expect(c, "BLOCK SETUPLIST\r\n" + c.sText + "END\r\n");
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

      {"DESCRIPTION = Pr\xFC\x66stand f\xFCr Z\xE4hne", ""},
      {"DESCRIPTION = \xC0\xC1\xC2 \x80 \x93x\x94 \xB5m \xB0", ""},
      {"DESCRIPTION = Pr\xC3\xBC\x66stand", "3:17 not-ansi", "is UTF-8"},
      {"; Pr\xC3\xBC\x66stand", ""},
      {"DESCRIPTION = QUALIT\xC9\x99\r\nUNINSTALLNAME = \xFC", ""},
      {"DESCRIPTION = Pr\xC3\xBC\x66stand\r\nUNINSTALLNAME = \xFC", "3:17 not-ansi"},
      {"DESCRIPTION = a\x81", "3:16 not-ansi", "the code 81"},
      {"DESCRIPTION = a\x01", "3:16 not-ansi", "the control character 01"},
      {"DESCRIPTION = a\tb", ""},

      {"DESCRIPTION = " + sWords.substr(0, 135), ""},
      {"DESCRIPTION = " + sWords, "3:15 long-text?", "The description"},
      {"PRODUCT = " + sWords.substr(0, 80), "3:11 long-text?", "The title"},
  };
  for (const Case& c : cases) {
    std::string sList = "BLOCK SETUPLIST\r\nBLOCK APPLICATION\r\n" + c.sText + "\r\n";
    for (const std::string sEntry :
         {"PRODUCT = A", "PRODUCTCODE = A", "REVISION = 1", "INSTALLFILE = setup.exe"})
      if (!sEntry.starts_with(c.sText.substr(0, c.sText.find('=')))) sList += sEntry + "\r\n";
    Expect(c, sList + "END\r\nEND\r\n");
  }
}

TEST_F(ListChecks, AsManyProductsAsTheMenuCanNumber) {
  std::string sText = "BLOCK SETUPLIST\n";
  for (int i = 0; i < 32767; ++i) sText += "BLOCK APPLICATION\nEND\n";
  const auto checks = KeyChecks();
  const auto check = std::find_if(checks.begin(), checks.end(), [](const trelin::Check& c) {
    return c.pRule->pName == std::string("too-many-products");
  });
  for (const char* sFindings : {"", "65536:1 too-many-products"}) {
    Findings findings;
    Report report(check->pRule, findings);
    check->run(Read(sText), report);
    EXPECT_EQ(Summary(findings), sFindings);
    sText += "BLOCK APPLICATION\nEND\nBLOCK APPLICATION\nEND\n";
  }
}

TEST(RevisionOrder, NumbersCompareByValue) {
  const std::pair<const char*, const char*> cases[] = {{"2.9", "2.10"},
                                                       {"2.9", "2.9.1"},
                                                       {"9", "10.0"},
                                                       {"2.1", "2.1a"},
                                                       {"2.1a", "2.1b"},
                                                       {"", "1"},
                                                       {"1.0 beta 9", "1.0 beta 10"}};
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
  for (const auto& c : cases)
    EXPECT_EQ(EditDistance(c.pOne, c.pOther), c.nDistance) << c.pOne << " " << c.pOther;
}

}  // namespace
}  // namespace trelin
