#include "check/results.h"

#include <regex>

#include "check/options.h"
#include "shared/version.h"
#include "testing/fake_platform.h"
#include "tests/check/suite_folder.h"

namespace trelin {
namespace {

constexpr Rule UnknownKey = {"unknown-key", "", ""};
constexpr Rule MissingText = {"missing-text", "", ""};

// One finding in a line with a tab, an umlaut and a quote, and one of a library.
Results TwoFiles() {
  CheckedFile list, library;
  list.sPath = "my suite/TRELIN.CFG";
  for (const char* pLine : {"BLOCK SETUPLIST", "\t\"Pr\xFC\x66\" = \\x"}) list.lines.Add(pLine);
  const Place place = {2, 2, 6};
  list.findings = {{&UnknownKey, Severity::Error, place, "Unknown \"Pr\xFC\x66\".\n\nGo on.",
                    "Try TITLE, perhaps: it is the nearest."}};
  library.sPath = "C:\\ENU35000.DLL";
  library.findings = {{&MissingText, Severity::Warning, {}, "Text 35010 is missing.", "", 35010}};
  return {list, library};
}

TEST(Results, Text) {
  EXPECT_EQ(TextReport(TwoFiles()),
            R"(my suite/TRELIN.CFG:2:2: error: Unknown "Prüf". Go on. [unknown-key]
     2 |  "Prüf" = \x
       |  ^~~~~~
       = Try TITLE, perhaps: it is the nearest.
C:\ENU35000.DLL: warning: Text 35010 is missing. [missing-text]
1 error, 1 warning
)");
  EXPECT_EQ(TextReport({}), "0 errors, 0 warnings\n");
  EXPECT_EQ(TextReport(TwoFiles(), {40, true}),
            "my suite/TRELIN.CFG:2:2: \x1B[1;31merror\x1B[0m: Unknown\n    \"Pr\u00FCf\". Go on. "
            "[unknown-key]\n     2 |  \"Pr\u00FCf\" = \\x\n       |  ^~~~~~\n       = Try TITLE, "
            "perhaps: it is the\n         nearest.\n"
            "C:\\ENU35000.DLL: \x1B[1;35mwarning\x1B[0m: Text 35010 is\n    missing. "
            "[missing-text]\n1 error, 1 warning\n");
}

// Of a long line the part around the place is shown, with the mark under it.
TEST(Results, TheMarkStandsUnderItsPlaceInALongLine) {
  CheckedFile file;
  file.lines.Add(std::string(500, 'x') + "!" + std::string(500, 'x'));
  file.findings = {{&rule::LongText, Severity::Warning, {1, 501, 400}, "", ""},
                   {&rule::LongText, Severity::Warning, {1, 1002, 1}, "", ""}};
  const std::string sReport = TextReport({file});
  const std::size_t nLine = sReport.find('\n') + 1;
  const std::size_t nMark = sReport.find('\n', nLine) + 1;
  EXPECT_EQ(sReport.find('!') - nLine, sReport.find('^') - nMark);
  EXPECT_EQ(nMark - nLine, 170U) << "9 characters, 160 of the line, its end";
  EXPECT_EQ(sReport.find('\n', nMark) + 1 - nMark, 170U) << "the mark ends where the part does";
}

// A bar stands for a line break and the spaces behind it.
TEST(Results, Json) {
  EXPECT_EQ(
      std::regex_replace(JsonReport(TwoFiles()), std::regex("\n *"), "|"),
      std::string(R"({|"version": 1,|"tool": "trelin-check",|"toolVersion": ")") + Version +
          R"(",|"errors": 1,|"warnings": 1,|"findings": [|)"
          R"({|"file": "my suite/TRELIN.CFG",|"line": 2,|"column": 2,|"length": 6,|)"
          R"("source": "\u0009\"Prüf\" = \\x",|"severity": "error",|"rule": "unknown-key",|)"
          R"("message": "Unknown \"Prüf\".\u000a\u000aGo on.",|"hint": "Try TITLE, perhaps: it is the nearest."|},|)"
          R"({|"file": "C:\\ENU35000.DLL",|"number": 35010,|"severity": "warning",|)"
          R"("rule": "missing-text",|"message": "Text 35010 is missing."|}|]|}|)");
}

TEST(Results, SarifNamesFilesByUris) {
  const std::string sReport = SarifReport(TwoFiles());
  for (const char* pPart :
       {"\"version\": \"2.1.0\"", "\"uri\": \"my%20suite/TRELIN.CFG\"",
        "\"uri\": \"file:///C:/ENU35000.DLL\"", "\"startLine\": 2,", "\"startColumn\": 2,",
        "\"endLine\": 2,", "\"endColumn\": 8", "\"ruleId\": \"unknown-key\"",
        "\"level\": \"warning\"", "\"help\": {", "\"fullDescription\": {",
        "f\\\".\\u000a\\u000aGo on.\\u000a\\u000aTry TITLE, perhaps: it is the nearest."})
    EXPECT_NE(sReport.find(pPart), std::string::npos) << pPart;
}

TEST(Options, AreReadInAnyOrderAndAWrongUseIsNamed) {
  const Options options = ParseOptions({"a/b", "--strict", "--format=json", "--source", "../c"});
  EXPECT_EQ(options.sPath, "a\\b");
  EXPECT_EQ(options.sSourceFolder, "..\\c");
  EXPECT_TRUE(options.bStrict);
  EXPECT_EQ(options.format, ReportFormat::Json);
  EXPECT_EQ(ParseOptions({}).sPath, ".");
  EXPECT_EQ(ParseOptions({"--", "--strict"}).sPath, "--strict");
  EXPECT_EQ(ParseOptions({"-"}).sPath, "-");
  EXPECT_TRUE(ParseOptions({"--new", "x"}).bNew);
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"a", "b"}, "One folder or file can be checked at a time."},
      {{""}, "The name of the folder or file is empty."},
      {{"--verbose"}, "The option \"--verbose\" is unknown."},
      {{"--format"}, "The option \"--format\" needs a value."},
      {{"--format", "xml"}, "The format \"xml\" is none of text, json and sarif."},
      {{"--allow", "x"}, "There is no rule \"x\"."},
      {{"--source="}, "The value of the option \"--source\" is empty."},
      {{"--library", "x", "y"},
       "Either a setup list or a string library can be checked at a time."},
  };
  for (const auto& [arguments, pMessage] : cases)
    EXPECT_EQ(Failure([&, &given = arguments] { ParseOptions(given); }), pMessage);
}

}  // namespace
}  // namespace trelin
