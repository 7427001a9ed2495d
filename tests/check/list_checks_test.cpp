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
std::string Needs(const std::string& sCode, const std::string& sRevision) {
  return "BLOCK DEPENDENCY\nTITLE = Product " + sCode + "\nPRODUCTCODE = " + sCode +
         "\nREVISION = " + sRevision + "\nEND\n";
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
  const std::string sNothing = "BLOCK APPLICATION\nEND\n";
  const Case cases[] = {
      {"TITLE=x\n" + Product("A", "1",
                             "DESCRIPTION=d\nIMAGE=good.bmp\nUNINSTALLNAME=u\n"
                             "READMEFILE=readme.exe\n"),
       ""},  // every known key
      {"NAME=x\n" + Product("B", "1") +
           Product("A", "1",
                   "Titel = x\nBLOCK DEPENDENCY\nTITLE=Product B\nPRODUCTCODE=B\n =x\nEND\n"),
       "2:1 error unknown-key\n14:1 error unknown-key\n18:2 error unknown-key\n"},
      {Product("A", "1", "product=x\nBLOCK DEPENDENCY\nTITLE=x\nPRODUCTCODE=A\nTitle=x\nEND\n"),
       "7:1 warning repeated-key\n10:13 error circle\n11:1 warning repeated-key\n",
       "PRODUCT is given twice in this block, first in line 3."},
      {Product("A", "1") + Product("B", "1", Needs("A", "1")), ""},  // the same keys
      {sNothing,
       "2:1 error no-title\n2:1 warning no-installer\n2:1 warning no-code\n2:1 warning "
       "no-revision\n"},
      {"BLOCK APPLICATION\nPRODUCT=\nINSTALLFILE =\nPRODUCTCODE= \nREVISION=\nEND\n",
       "3:9 error no-title\n4:14 warning no-installer\n5:13 warning no-code\n6:10 warning "
       "no-revision\n"},
      {"BLOCK APPLICATION\nPRODUCT=A\nINSTALLFILE=setup.exe\nPRODUCTCODE=A\nEND\n",
       "2:1 error no-revision\n"},
      {Product("A", "1", "BLOCK DEPENDENCY\nEND\n"), "7:1 warning no-title\n7:1 error no-code\n"},
      {Product("A", "1", "PRODUCT=\n"), "7:1 warning repeated-key\n7:9 error no-title\n"},

      {Product("a", "1") + Product("A", "1"), "10:15 error repeated-code\n",
       "\"A\" is that of \"Product a\" (line 2), too"},
      {sNothing + sNothing + Product("B", "1"),  // no code is none
       "2:1 error no-title\n2:1 warning no-installer\n2:1 warning no-code\n2:1 warning "
       "no-revision\n4:1 error no-title\n4:1 warning no-installer\n4:1 warning no-code\n4:1 "
       "warning no-revision\n"},
      {Product("A", "1", Needs("B", "1")), "9:15 warning not-offered\n"},
      {Product("RUNTIME", "1", Needs("RUNTIEM", "1")), "9:15 warning not-offered\n",
       "The code that is nearest to it is \"RUNTIME\"."},
      {Product("Ab", "1") + Product("C", "1", Needs("aB", "1")), "14:9 warning other-title\n"},
      {Product("A", "1.0") + Product("B", "1", Needs("A", "1.1")),
       "16:12 error revision-not-offered\n",
       "\"1.1\" is required, but \"Product A\" (line 2) offers \"1.0\""},
      {Product("A", "1.1") + Product("B", "1", Needs("A", "1.0")), ""},
      {Product("A", "1") +
           Product("B", "1", "BLOCK DEPENDENCY\nTITLE=Product A\nPRODUCTCODE=A\nEND\n"),
       ""},  // any revision
      {Product("A", "2.10") + Product("B", "1", Needs("A", "2.9")), "16:12 error revision-order\n",
       "\"2.10\" (line 5) and \"2.9\" (line 16)"},
      {Product("A", "2.9") + Product("B", "1", Needs("A", "2.10")), "16:12 error revision-order\n",
       "Write \"2.09\" and \"2.10\""},
      {Product("A", "2.1") + Product("B", "1", Needs("A", "2.10")),
       "16:12 error revision-not-offered\n"},
      {Product("A", "2.10") + Product("B", "1", Needs("A", "2.09")), ""},
      {Product("A", "2.10") + Product("B", "2.9"), ""},  // of different products
      {Product("A", "1", Needs("X", "9") + Needs("X", "10")),
       "9:15 warning not-offered\n14:15 warning repeated-prerequisite\n14:15 warning "
       "not-offered\n15:12 error revision-order\n"},
      {Product("A", "1") + Product("B", "1", "BLOCK DEPENDENCY\nTITLE=x\nPRODUCTCODE=A\nEND\n"),
       "14:7 warning other-title\n", "\"x\", but the product that offers it is \"Product A\""},
      {Product("A", "1") + Product("acheckfile", "1"), "10:15 error code-of-check-file\n",
       "is \"A\" (line 4) followed by CheckFile"},
      {Product("A", std::string(255, '1')), ""},
      {Product("A", std::string(256, '1')), "5:12 error record-too-long\n"},
      {Product("A", "1") + Product("B", "1", "PRODUCT=Product A\n"),
       "13:1 warning repeated-key\n13:9 warning repeated-title\n", "in line 3, too"},

      {"; trelin-check: allow no-installer,no-code\nBLOCK APPLICATION\nPRODUCT=A\nEND\n"
       "BLOCK APPLICATION\nPRODUCT=B\nPRODUCTCODE=B\nREVISION=1\nEND\n",
       "3:1 warning no-revision\n6:1 warning no-installer\n"},
      {Product("A", "1", " ;trelin-check:\tallow unknown-key\n\n; x\nX=1\nY=1\n"),
       "11:1 error unknown-key\n"},
      {"; trelin-check: allow circle, no-such\n" + Product("A", "1"),
       "2:23 warning idle-allowance\n2:31 warning idle-allowance\n"},

      {Product("A", "1", Needs("A", "1")), "9:15 error circle\n", "A product needs itself: "},
      {Product("A", "1", Needs("B", "1")) + Product("B", "1", Needs("C", "1")) +
           Product("C", "1", Needs("A", "1")),
       "31:15 error circle\n",
       "\"Product A\" (line 2) needs \"Product B\" (line 13), which needs \"Product C\" (line "
       "24), which needs \"Product A\" (line 2)."},
      {Product("A", "1") + Product("B", "1", Needs("A", "1")) +
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
      {"REVISON=1", "3:1 error unknown-key\n", "\"REVISON\" in a block APPLICATION"},
      {"REVISON=1", "3:1 error unknown-key\n", "nearest to it is REVISION."},
      {"TITLE=1", "3:1 error unknown-key\n",
       "PRODUCT. It is a key of a block SETUPLIST or DEPENDENCY."},
      {"END=x", "3:1 error unknown-key\n", "count as END has no equals sign"},

      {"IMAGE = GOOD.BMP", ""},
      {"IMAGE = missing.bmp", "3:9 error picture-missing\n"},
      {"IMAGE = \"good.bmp\"", "3:9 error picture-missing\n", "Quotation marks"},
      {"IMAGE = My Docs", "3:9 error picture-missing\n"},
      {"IMAGE = bad.bmp", "3:9 error picture-unreadable\n"},
      {"IMAGE =", ""},
      {"INSTALLFILE = Setup.EXE", ""},
      {"INSTALLFILE = My Docs\\readme.exe", ""},
      {"INSTALLFILE = tool", ""},
      {"INSTALLFILE = missing.exe", "3:15 error installer-missing\n"},
      {"INSTALLFILE = My Docs", "3:15 error installer-missing\n"},
      {"INSTALLFILE = setup.exe /q", "3:15 error installer-missing\n", "no arguments"},
      {"INSTALLFILE = setup.msi", "3:15 error not-a-program\n", "msiexec"},
      {"READMEFILE = readme.exe", ""},
      {"READMEFILE = readme.exe some readme.txt /x.y", ""},
      {"READMEFILE = readme.exe gone.txt", "3:14 warning argument-missing\n", "\"gone.txt\""},
      {"READMEFILE = My Docs\\readme.exe readme.txt", ""},
      {"READMEFILE = missing.exe", "3:14 error read-me-missing\n"},
      {"READMEFILE = C:\\readme.exe", "3:14 error read-me-missing\n", "full path"},
      {"READMEFILE = My Docs\\missing.exe", "3:14 error read-me-missing\n"},
      {"READMEFILE = \"readme.exe\" x", "3:14 error read-me-missing\n"},
      {"READMEFILE = help it.exe readme.txt", "3:14 warning read-me-ambiguous\n"},
      {"READMEFILE = read me.exe", "3:14 warning read-me-ambiguous\n"},
      {"READMEFILE = readme.TXT", "3:14 error not-a-program\n", "opens it"},

      {"DESCRIPTION = Pr\xFC\x66stand f\xFCr Z\xE4hne", ""},
      {"DESCRIPTION = \xC0\xC1\xC2 \x80 \x93x\x94 \xB5m \xB0", ""},
      {"DESCRIPTION = Pr\xC3\xBC\x66stand", "3:17 error not-ansi\n", "is UTF-8"},
      {"; Pr\xC3\xBC\x66stand", ""},
      {"DESCRIPTION = QUALIT\xC9\x99\r\nUNINSTALLNAME = \xFC", ""},
      {"DESCRIPTION = Pr\xC3\xBC\x66stand\r\nUNINSTALLNAME = \xFC", "3:17 error not-ansi\n"},
      {"DESCRIPTION = a\x81", "3:16 error not-ansi\n", "the code 81"},
      {"DESCRIPTION = a\x01", "3:16 error not-ansi\n", "the control character 01"},
      {"DESCRIPTION = a\tb", ""},

      {"DESCRIPTION = " + sWords.substr(0, 135), ""},
      {"DESCRIPTION = " + sWords, "3:15 warning long-text\n", "The description"},
      {"PRODUCT = " + sWords.substr(0, 80), "3:11 warning long-text\n", "The title"},
  };
  for (const Case& c : cases) {
    std::string sList = "BLOCK SETUPLIST\r\nBLOCK APPLICATION\r\n" + c.sText + "\r\n";
    for (const char* sEntry :
         {"PRODUCT = A", "PRODUCTCODE = A", "REVISION = 1", "INSTALLFILE = setup.exe"})
      if (c.sText.substr(0, c.sText.find('=')) != std::string(sEntry).substr(0, c.sText.find('=')))
        sList += std::string(sEntry) + "\r\n";
    Expect(c, sList + "END\r\nEND\r\n");
  }
}

TEST_F(ListChecks, InstallersLieInTheSourceFolder) {
  const TemporaryFolder source;
  source.Write("other.exe", "MZ");
  Suite suite = Read("BLOCK SETUPLIST\nBLOCK APPLICATION\nPRODUCT=A\nINSTALLFILE=other.exe\n");
  EXPECT_NE(Summary(CheckSuite(suite)).find("installer-missing"), std::string::npos);
  suite.sSourceFolder = ProgramPath(source / "");
  EXPECT_EQ(Summary(CheckSuite(suite)).find("installer-missing"), std::string::npos);
}

TEST_F(ListChecks, AsManyProductsAsTheMenuCanNumber) {
  std::string sText = "BLOCK SETUPLIST\n";
  for (int i = 0; i < 32767; ++i) sText += "BLOCK APPLICATION\nEND\n";
  for (const auto& [sMore, sFindings] : {std::pair("", ""),
                                         {"BLOCK APPLICATION\nEND\nBLOCK APPLICATION\nEND\n",
                                          "65536:1 error too-many-products\n"}}) {
    const Suite suite = Read(sText + sMore);
    Findings findings;
    for (const trelin::Check& check : KeyChecks()) {
      Report report(check.pRule, findings);
      if (std::string_view(check.pRule->pName) == "too-many-products") check.run(suite, report);
    }
    EXPECT_EQ(Summary(findings), sFindings);
  }
}

TEST(RevisionOrder, NumbersCompareByValue) {
  const struct {
    const char *pLower, *pHigher;
  } cases[] = {{"2.9", "2.10"},
               {"2.9", "2.9.1"},
               {"9", "10.0"},
               {"2.1", "2.1a"},
               {"2.1a", "2.1b"},
               {"", "1"},
               {"1.0 beta 9", "1.0 beta 10"}};
  for (const auto& c : cases) {
    EXPECT_TRUE(CompareByNumbers(c.pLower, c.pHigher) < 0) << c.pLower << " " << c.pHigher;
    EXPECT_TRUE(CompareByNumbers(c.pHigher, c.pLower) > 0) << c.pLower << " " << c.pHigher;
    const auto [sLower, sHigher] = SortableSpelling(c.pLower, c.pHigher);
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
