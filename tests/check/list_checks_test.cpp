#include <array>

#include "check/nearest.h"
#include "check/revision_order.h"
#include "shared/start_paths.h"
#include "suite/menu_item.h"
#include "suite/setup_list.h"
#include "tests/check/suite_folder.h"

namespace trelin {
namespace {

using ListChecks = CheckTest;

struct Case {
  const char* pWhat;
  std::string sText;
  std::string sFindings;
};

TEST_F(ListChecks, KeysAndMissingEntries) {
  const Case cases[] = {
      {"every known key",
       "BLOCK SETUPLIST\nTITLE=x\n" +
           Product("A", "1",
                   "DESCRIPTION=d\nIMAGE=good.bmp\nUNINSTALLNAME=u\nREADMEFILE=readme.exe\n") +
           "END\n",
       ""},
      {"an unknown key in each block",
       "BLOCK SETUPLIST\nNAME=x\n" + Product("B", "1") +
           Product("A", "1", "Titel = x\nBLOCK DEPENDENCY\nTITLE=B\nPRODUCTCODE=B\n =x\nEND\n") +
           "END\n",
       "2:1 error unknown-key\n14:1 error unknown-key\n18:2 error unknown-key\n"},
      {"a key twice",
       List({Product("A", "1",
                     "product=x\nBLOCK DEPENDENCY\nTITLE=x\nPRODUCTCODE=A\nTitle=x\nEND\n")}),
       "7:1 warning repeated-key\n10:13 error circle\n11:1 warning repeated-key\n"},
      {"the same key in other blocks",
       List({Product("A", "1"), Product("B", "1", Needs("A", "1"))}), ""},
      {"nothing in a product", List({"BLOCK APPLICATION\nEND\n"}),
       "2:1 error no-title\n2:1 warning no-installer\n2:1 warning no-code\n2:1 warning "
       "no-revision\n"},
      {"empty values",
       List({"BLOCK APPLICATION\nPRODUCT=\nINSTALLFILE =\nPRODUCTCODE= \nREVISION=\nEND\n"}),
       "3:9 error no-title\n4:14 warning no-installer\n5:13 warning no-code\n6:10 warning "
       "no-revision\n"},
      {"a code without a revision",
       List({"BLOCK APPLICATION\nPRODUCT=A\nINSTALLFILE=setup.exe\nPRODUCTCODE=A\nEND\n"}),
       "2:1 error no-revision\n"},
      {"nothing in a prerequisite", List({Product("A", "1", "BLOCK DEPENDENCY\nEND\n")}),
       "7:1 warning no-title\n7:1 error no-code\n"},
      {"a later empty value counts", List({Product("A", "1", "PRODUCT=\n")}),
       "7:1 warning repeated-key\n7:9 error no-title\n"},
  };
  for (const Case& c : cases) EXPECT_EQ(Check(c.sText), c.sFindings) << c.pWhat;
}

TEST_F(ListChecks, CodesAndRevisions) {
  const Case cases[] = {
      {"the same code in another letter case", List({Product("a", "1"), Product("A", "1")}),
       "10:15 error repeated-code\n"},
      {"a code that nobody offers", List({Product("A", "1", Needs("B", "1"))}),
       "9:15 warning not-offered\n"},
      {"a prerequisite in another letter case",
       List({Product("Ab", "1"), Product("C", "1", Needs("aB", "1"))}), ""},
      {"a required revision that is higher",
       List({Product("A", "1.0"), Product("B", "1", Needs("A", "1.1"))}),
       "16:12 error revision-not-offered\n"},
      {"one that is lower", List({Product("A", "1.1"), Product("B", "1", Needs("A", "1.0"))}), ""},
      {"any revision",
       List({Product("A", "1"),
             Product("B", "1", "BLOCK DEPENDENCY\nTITLE=A\nPRODUCTCODE=A\nEND\n")}),
       ""},
      {"text order refuses", List({Product("A", "2.10"), Product("B", "1", Needs("A", "2.9"))}),
       "16:12 error revision-order\n"},
      {"text order lets pass", List({Product("A", "2.9"), Product("B", "1", Needs("A", "2.10"))}),
       "16:12 error revision-order\n"},
      {"the same number, more digits required",
       List({Product("A", "2.1"), Product("B", "1", Needs("A", "2.10"))}),
       "16:12 error revision-not-offered\n"},
      {"digits alike", List({Product("A", "2.10"), Product("B", "1", Needs("A", "2.09"))}), ""},
      {"revisions of different products", List({Product("A", "2.10"), Product("B", "2.9")}), ""},
      {"two prerequisites of a code that nobody offers",
       List({Product("A", "1", Needs("X", "9") + Needs("X", "10"))}),
       "9:15 warning not-offered\n14:15 warning not-offered\n15:12 error revision-order\n"},
      {"itself", List({Product("A", "1", Needs("A", "1"))}), "9:15 error circle\n"},
      {"three in a circle",
       List({Product("A", "1", Needs("B", "1")), Product("B", "1", Needs("C", "1")),
             Product("C", "1", Needs("A", "1"))}),
       "31:15 error circle\n"},
      {"two ways to one product are no circle",
       List({Product("A", "1"), Product("B", "1", Needs("A", "1")),
             Product("C", "1", Needs("B", "1") + Needs("A", "1"))}),
       ""},
  };
  for (const Case& c : cases) EXPECT_EQ(Check(c.sText), c.sFindings) << c.pWhat;
}

TEST_F(ListChecks, MessagesNameWhatBelongsTogether) {
  const struct {
    std::string sText;
    const char* pRule;
    const char* pMessage;
    const char* pHint;
  } cases[] = {
      {List({Product("A", "2.10"), Product("B", "1", Needs("A", "2.9"))}), "revision-order",
       "\"2.10\" (line 5) and \"2.9\" (line 16)", "\"2.09\" and \"2.10\""},
      {List({Product("A", "1", Needs("B", "1")), Product("B", "1", Needs("A", "1"))}), "circle",
       "\"Product A\" (line 2) needs \"Product B\" (line 13), which needs \"Product A\" (line 2)",
       ""},
      {List({Product("RUNTIME", "1"), Product("B", "1", Needs("RUNTIEM", "1"))}), "not-offered",
       "\"RUNTIEM\"", "\"RUNTIME\""},
      {List({Product("A", "1", "REVISON=1\n")}), "unknown-key", "\"REVISON\"", "REVISION."},
      {List({Product("A", "1", "TITLE=1\n")}), "unknown-key", "APPLICATION", "PRODUCT."},
      {List({Product("A", "1", "INSTALLFILE=setup.exe /q\n")}), "installer-missing", "setup.exe /q",
       "no arguments"},
      {List({Product("A", "1", "IMAGE=\"good.bmp\"\n")}), "picture-missing", "good.bmp",
       "Quotation marks"},
      {List({Product("A", "1", "READMEFILE=C:\\readme.exe\n")}), "read-me-missing", "readme.exe",
       "full path"},
  };
  for (const auto& c : cases) {
    const Findings findings = OfRule(c.pRule, CheckSuite(Read(c.sText)));
    ASSERT_FALSE(findings.empty()) << c.pRule;
    EXPECT_NE(findings.back().sMessage.find(c.pMessage), std::string::npos)
        << c.pRule << ": " << findings.back().sMessage;
    EXPECT_NE(findings.back().sHint.find(c.pHint), std::string::npos)
        << c.pRule << ": " << findings.back().sHint;
  }
}

TEST_F(ListChecks, Files) {
  folder.Write("read", "MZ");
  folder.Write("read me.exe", "MZ");
  folder.Write("help it.exe", "MZ");
  folder.Write("My Docs/readme.exe", "MZ");
  folder.Write("tool.exe", "MZ");
  folder.Write("setup.msi", "x");
  folder.Write("readme.txt", "x");
  const struct {
    const char *pEntry, *pFindings;
  } cases[] = {
      {"IMAGE = GOOD.BMP", ""},
      {"IMAGE = missing.bmp", "7:9 error picture-missing\n"},
      {"IMAGE = My Docs", "7:9 error picture-missing\n"},
      {"IMAGE = bad.bmp", "7:9 error picture-unreadable\n"},
      {"IMAGE =", ""},
      {"INSTALLFILE = Setup.EXE", "7:1 warning repeated-key\n"},
      {"INSTALLFILE = My Docs\\readme.exe", "7:1 warning repeated-key\n"},
      {"INSTALLFILE = tool", "7:1 warning repeated-key\n"},
      {"INSTALLFILE = missing.exe", "7:1 warning repeated-key\n7:15 error installer-missing\n"},
      {"INSTALLFILE = My Docs", "7:1 warning repeated-key\n7:15 error installer-missing\n"},
      {"INSTALLFILE = setup.exe /q", "7:1 warning repeated-key\n7:15 error installer-missing\n"},
      {"INSTALLFILE = setup.msi", "7:1 warning repeated-key\n7:15 warning not-a-program\n"},
      {"READMEFILE = readme.exe", ""},
      {"READMEFILE = readme.exe some text.txt", ""},
      {"READMEFILE = My Docs\\readme.exe text.txt", ""},
      {"READMEFILE = missing.exe", "7:14 error read-me-missing\n"},
      {"READMEFILE = My Docs\\missing.exe", "7:14 error read-me-missing\n"},
      {"READMEFILE = \"readme.exe\" x", "7:14 error read-me-missing\n"},
      {"READMEFILE = help it.exe text.txt", "7:14 warning read-me-ambiguous\n"},
      {"READMEFILE = read me.exe", "7:14 warning read-me-ambiguous\n"},
      {"READMEFILE = readme.txt", "7:14 warning not-a-program\n"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Check(List({Product("A", "1", std::string(c.pEntry) + "\r\n")})), c.pFindings)
        << c.pEntry;
}

TEST_F(ListChecks, InstallersLieInTheSourceFolder) {
  const TemporaryFolder source;
  source.Write("other.exe", "MZ");
  Suite suite = Read(List({Product("A", "1", "INSTALLFILE = other.exe\r\n")}));
  EXPECT_NE(Summary(CheckSuite(suite)).find("installer-missing"), std::string::npos);
  suite.sSourceFolder = ProgramPath(source / "");
  EXPECT_EQ(Summary(CheckSuite(suite)).find("installer-missing"), std::string::npos);
}

TEST_F(ListChecks, CodePage) {
  const struct {
    const char *pWhat, *pEntry, *pFindings;
  } cases[] = {
      {"umlauts of the code page",
       "DESCRIPTION = Pr\xFC"
       "fstand f\xFCr Z\xE4hne",
       ""},
      {"all kinds of its letters", "DESCRIPTION = \xC0\xC1\xC2 \x80 \x93x\x94 \xB5m \xB0", ""},
      {"UTF-8",
       "DESCRIPTION = Pr\xC3\xBC"
       "fstand",
       "7:17 error not-ansi\n"},
      {"UTF-8 in a comment",
       "; Pr\xC3\xBC"
       "fstand",
       ""},
      {"a code for no character", "DESCRIPTION = a\x81", "7:16 error not-ansi\n"},
      {"a control character", "DESCRIPTION = a\x01", "7:16 error not-ansi\n"},
      {"a tab", "DESCRIPTION = a\tb", ""},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Check(List({Product("A", "1", std::string(c.pEntry) + "\r\n")})), c.pFindings)
        << c.pWhat;
}

TEST_F(ListChecks, TextsThatAreCut) {
  const std::string sWords = "Measures gears and shafts. ";
  const auto repeated = [&sWords](int nTimes) {
    std::string sText;
    while (nTimes-- > 0) sText += sWords;
    return sText;
  };
  const auto check = [&](const std::string& sEntry) {
    return Check(List({Product("A", "1", sEntry + "\r\n")}));
  };
  EXPECT_EQ(check("DESCRIPTION = " + repeated(5)), "");
  EXPECT_EQ(check("DESCRIPTION = " + repeated(12)), "7:15 warning long-text\n");
  EXPECT_EQ(Check(List({"BLOCK APPLICATION\nPRODUCT = " + repeated(3) +
                        "\nPRODUCTCODE=A\nREVISION=1\nINSTALLFILE=setup.exe\nEND\n"})),
            "3:11 warning long-text\n");
}

TEST_F(ListChecks, AsManyProductsAsTheMenuCanNumber) {
  const std::string sProduct = "BLOCK APPLICATION\nEND\n";
  std::string sText;
  for (int i = 0; i < 32767; ++i) sText += sProduct;
  const auto count = [](const Suite& suite) {
    return Summary(OfRule("too-many-products", CheckSuite(suite)));
  };
  EXPECT_EQ(count(Read(List({sText}))), "");
  EXPECT_EQ(count(Read(List({sText, sProduct}))), "65536:1 error too-many-products\n");
}

// The keys that the check knows are those that the launcher's readers know.
TEST_F(ListChecks, TheKnownKeysAreTheLaunchers) {
  class CountingSystem : public BuildSystem {
   public:
    void Beep() override { ++nComplaints; }
    MessageAnswer ShowMessage(const std::string&, MessageIcon, MessageButtons,
                              const std::string&) override {
      ++nComplaints;
      return MessageAnswer::Ok;
    }
    int nComplaints = 0;
  } counting;
  const PlatformScope countingScope({registry.get(), &libraries, &counting});
  constexpr std::array Openings = {"BLOCK SETUPLIST\n", "BLOCK APPLICATION\n",
                                   "BLOCK DEPENDENCY\n"};
  const auto complaints = [&](std::size_t nDepth, const std::string& sKey) {
    std::string sText;
    for (std::size_t n = 0; n <= nDepth; ++n) sText += Openings[n];
    folder.Write("TRELIN.CFG", sText + sKey + " = x\n");
    SetupList list;
    list.Initialize();
    counting.nComplaints = 0;
    list.LoadFromFile(ProgramPath(folder / "TRELIN.CFG"));
    return counting.nComplaints;
  };
  const std::array kinds = {BlockKind::SetupList, BlockKind::Application, BlockKind::Dependency};
  for (std::size_t nKind = 0; nKind < kinds.size(); ++nKind)
    for (const BlockKind from : kinds)
      for (const char* pKey : KeysOf(from)) {
        const auto& known = KeysOf(kinds[nKind]);
        const bool bKnown = std::find_if(known.begin(), known.end(), [&](const char* p) {
                              return std::string_view(p) == pKey;
                            }) != known.end();
        EXPECT_EQ(complaints(nKind, pKey), bKnown ? 0 : 1) << NameOf(kinds[nKind]) << " " << pKey;
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
  EXPECT_EQ(SortableSpelling("2.9", "2.10"), (std::pair<std::string, std::string>("2.09", "2.10")));
}

TEST(NearestWord, CountsWhatATypistDoes) {
  const struct {
    const char *pOne, *pOther;
    std::size_t nDistance;
  } cases[] = {{"", "ABC", 3},    {"ABC", "ABC", 0}, {"ABC", "AC", 1},          {"ABC", "ABXC", 1},
               {"ABC", "AXC", 1}, {"ABC", "ACB", 1}, {"REVISON", "REVISION", 1}};
  for (const auto& c : cases)
    EXPECT_EQ(EditDistance(c.pOne, c.pOther), c.nDistance) << c.pOne << " " << c.pOther;
}

}  // namespace
}  // namespace trelin
