#include "check/library_check.h"

#include "seam/platform_error.h"
#include "shared/pe_string_table.h"
#include "testing/fake_platform.h"
#include "tests/check/suite_folder.h"

namespace trelin {
namespace {

using LibraryCheck = CheckTest;

const std::string CheckedLibrary = FileBytes(TRELIN_BUILD_DIR "/ENU35000.DLL");

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
      {"a text is missing", {{35010, u""}}, "35010 error missing-text\n"},
      {"one too many", {{35011, u"x"}}, "35011 warning unknown-text\n"},
      {"a placeholder is missing", {{35010, u"Line %1%: %0% %2%."}}, "35010 error placeholders\n"},
      {"a wrong placeholder", {{35000, u"Text %1% is missing."}}, "35000 error placeholders\n"},
      {"the last one", {{35015, u"Not %9%"}}, "35015 error placeholders\n"},
      {"a percent sign is none", {{35015, u"0% and 5 % and %x% %:% %/%"}}, ""},
      {"more lines of the notice", {{35040, u"3"}, {35043, u"Third"}}, ""},
      {"fewer", {{35040, u"1"}, {35042, u""}}, ""},
      {"more than there are", {{35040, u"3"}}, "35043 error missing-text\n"},
      {"a number with spaces", {{35040, u" 2 "}}, ""},
      {"words for a number", {{35040, u"2 lines"}}, "35040 error notice-number\n"},
      {"a number beyond 16 bits", {{35040, u"40000"}}, "35040 error notice-number\n"},
      {"as long as can be", {{35041, std::u16string(1023, u'x')}}, ""},
      {"longer", {{35041, std::u16string(1024, u'x')}}, "35041 error text-too-long\n"},
      {"letters of the code page", {{35041, u"\u00E4\u20AC?"}}, ""},
      {"others", {{35041, u"\u0105"}}, "35041 warning text-not-ansi\n"},
      {"states alike", {{35015, u"Installed"}}, "35016 error alike-texts\n"},
      {"a long state", {{35015, std::u16string(200, u'w')}}, "35015 warning long-text\n"},
      {"no access key", {{35027, u"Setup && more"}}, "35027 warning access-key\n"},
      {"none at the end", {{35027, u"Setup&"}}, "35027 warning access-key\n"},
      {"one for two buttons", {{35028, u"&setup"}}, "35028 warning access-key\n"},
      {"a long title bar", {{35014, std::u16string(90, u'w')}}, "35014 warning long-text\n"},
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
       "35024 warning untranslated\n35028 warning untranslated\n"},
      {"a long button", {{35027, u"&Installationsprogramm starten"}}, "35027 warning long-text\n"},
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

// Those of the tests' own library, which are all.
TEST(Libraries, TheShippedOneHasTheTextsThatTheProgramAsksFor) {
  FakePlatform platform;
  LibraryTexts asked, shipped;
  for (const auto& [lId, sText] : platform.libraries.Own())
    asked[static_cast<std::uint16_t>(lId)] = {sText.begin(), sText.end()};
  const auto table = PeStringTable::Parse(CheckedLibrary);
  for (std::uint16_t n = 35000; n < 36000; ++n)
    if (!table->Text(n).empty()) shipped[n] = table->Text(n);
  EXPECT_EQ(Summary(CompareLibraries(asked, shipped)), "");
}

TEST_F(LibraryCheck, TheProgramsOwnIsCleanAndADamagedOneIsNamed) {
  folder.Write("own.dll", CheckedLibrary);
  folder.Write("cut.dll", CheckedLibrary.substr(0, CheckedLibrary.size() / 2));
  EXPECT_EQ(Summary(CheckLibrary(ProgramPath(folder / "own.dll"))), "");
  EXPECT_EQ(Summary(CheckLibrary(ProgramPath(folder / "cut.dll"))), "0:1 error library-damaged\n");
  EXPECT_THROW(CheckLibrary(ProgramPath(folder / "none.dll")), PlatformError);
}

}  // namespace
}  // namespace trelin
