#include "check/library_check.h"

#include "check/library_source.h"
#include "shared/pe_string_table.h"
#include "testing/fake_platform.h"
#include "tests/check/suite_folder.h"

namespace trelin {
namespace {

TEST(Libraries, AreComparedWithTheProgramsOwn) {
  // A small program's own texts, with each kind of them.
  const LibraryTexts own = {
      {35000, u"Text %0% is missing."},
      {35010, u"Line %1%: %0% %2%, not %3%."},
      {35014, u"Setup"},
      {35015, u"Not installed"},
      {35016, u"Installed"},
      {35024, u"E&xit"},
      {35027, u"&Setup"},
      {35028, u"&Read Me"},
      {35040, u"2"},
      {35041, u"First line"},
      {35042, u"Second line"},
  };
  const struct {
    const char* pWhat;
    LibraryTexts changes;
    const char* pFindings;
  } cases[] = {
      {"the same", {}, ""},
      {"other words", {{35010, u"%3% statt %2%: %0%, Zeile %1%, %1%"}, {35027, u"&Einricht"}}, ""},
      {"a text is missing", {{35010, u""}}, "35010 missing-text"},
      {"one too many", {{35011, u"x"}}, "35011 unknown-text?"},
      {"a placeholder is missing", {{35010, u"Line %1%: %0% %2%."}}, "35010 placeholders"},
      {"a wrong placeholder", {{35000, u"Text %1% is missing."}}, "35000 placeholders"},
      {"the last one", {{35015, u"Not %9%"}}, "35015 placeholders"},
      {"a percent sign is none", {{35015, u"0% and 5 % and %x% %:% %/%"}}, ""},
      {"more lines of the notice", {{35040, u"3"}, {35043, u"Third"}}, ""},
      {"fewer", {{35040, u"1"}, {35042, u""}}, ""},
      {"more than there are", {{35040, u"3"}}, "35043 missing-text"},
      {"a number with spaces", {{35040, u" 2 "}}, ""},
      {"words for a number", {{35040, u"2 lines"}}, "35040 notice-number"},
      {"a number beyond 16 bits", {{35040, u"40000"}}, "35040 notice-number"},
      {"as long as can be", {{35041, std::u16string(1023, u'x')}}, ""},
      {"longer", {{35041, std::u16string(1024, u'x')}}, "35041 text-too-long"},
      {"letters of the code page", {{35041, u"\u00E4\u20AC?"}}, ""},
      {"Polish", {{35041, u"\u0105\u20AC"}}, "35041 text-not-ansi?"},
      {"Polish and Greek", {{35041, u"\u0105\u03B1"}}, "35041 no-code-page"},
      {"Armenian", {{35041, u"\u0561"}}, "35041 no-code-page"},
      {"a picture", {{35041, u"\U0001F600"}}, "35041 no-code-page"},
      {"Korean", {{35041, u"\uAC00"}}, "35041 text-not-ansi?"},
      {"states alike", {{35015, u"Installed"}}, "35016 alike-texts"},
      {"a long state", {{35015, std::u16string(200, u'w')}}, "35015 long-text?"},
      {"no access key", {{35027, u"Setup && more"}}, "35027 access-key?"},
      {"none at the end", {{35027, u"Setup&"}}, "35027 access-key?"},
      {"one for two buttons", {{35028, u"&setup"}}, "35028 access-key?"},
      {"a long title bar", {{35014, std::u16string(90, u'w')}}, "35014 long-text?"},
      {"a translation",
       {{35000, u"%0%"},
        {35010, u"%1%%0%%2%%3%"},
        {35014, u"x"},
        {35015, u"a"},
        {35016, u"b"},
        {35027, u"&c"},
        {35041, u""},
        {35040, u"0"},
        {35042, u""}},
       "35024 untranslated?, 35028 untranslated?"},
      {"a long button", {{35027, u"&Installationsprogramm starten"}}, "35027 long-text?"},
  };
  for (const auto& c : cases) {
    LibraryTexts texts = own;
    for (const auto& [nNumber, sText] : c.changes) {
      texts[nNumber] = sText;
      if (sText.empty()) texts.erase(nNumber);
    }
    EXPECT_EQ(Summary(CompareLibraries(own, texts)), c.pFindings) << c.pWhat;
  }
}

TEST(Libraries, FindingsStandWhereTheScriptHasTheirNumbers) {
  Findings findings = CompareLibraries({{35010, u"x"}, {35011, u"y"}, {35012, u"z"}}, {});
  SourceLines script;
  for (const char* pLine : {"STRINGTABLE", "  35012 \"z\"", "\t35010\t\"x\"", "350111"})
    script.Add(pLine);
  PlaceInSource(findings, script);
  std::vector<Place> places;
  for (const Finding& finding : findings) places.push_back(finding.place);
  EXPECT_EQ(places, (std::vector<Place>{{}, {2, 3, 5}, {3, 2, 5}}));
}

// Those of the tests' own library, which are all.
TEST(Libraries, TheShippedOneHasTheTextsThatTheProgramAsksFor) {
  FakePlatform platform;
  LibraryTexts asked, shipped;
  for (const auto& [lId, sText] : platform.libraries.Own())
    asked[static_cast<std::uint16_t>(lId)] = {sText.begin(), sText.end()};
  const auto table = PeStringTable::Parse(FileBytes(TRELIN_BUILD_DIR "/ENU35000.DLL"));
  for (std::uint16_t n = 35000; n < 36000; ++n)
    if (!table->Text(n).empty()) shipped[n] = table->Text(n);
  EXPECT_EQ(Summary(CompareLibraries(asked, shipped)), "");
}

}  // namespace
}  // namespace trelin
