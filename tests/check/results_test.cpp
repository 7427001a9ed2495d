#include "check/results.h"

#include "check/options.h"
#include "check/version.h"
#include "tests/check/suite_folder.h"

namespace trelin {
namespace {

constexpr Rule UnknownKey = {"unknown-key", ""};
constexpr Rule MissingText = {"missing-text", ""};

// One finding in a line with a tab, an umlaut and a quote, and one of a library.
Results TwoFiles() {
  CheckedFile list;
  list.sPath = "my suite/TRELIN.CFG";
  list.lines.Add("BLOCK SETUPLIST");
  list.lines.Add(
      "\t\"Pr\xFC"
      "f\" = \\x");
  list.findings = {{&UnknownKey,
                    Severity::Error,
                    {2, 2, 6},
                    "Unknown \"Pr\xFC"
                    "f\".\n\nGo on.",
                    "Try TITLE."}};
  CheckedFile library;
  library.sPath = "C:\\ENU35000.DLL";
  library.findings = {{&MissingText, Severity::Warning, {}, "Text 35010 is missing.", "", 35010}};
  return {list, library};
}

TEST(Results, Text) {
  EXPECT_EQ(TextReport(TwoFiles()),
            "my suite/TRELIN.CFG:2:2: error: Unknown \"Pr\u00FC"
            "f\". Go on. [unknown-key]\n"
            "     2 |  \"Pr\u00FC"
            "f\" = \\x\n"
            "       |  ^~~~~~\n"
            "       = Try TITLE.\n"
            "C:\\ENU35000.DLL: warning: Text 35010 is missing. [missing-text]\n"
            "1 error, 1 warning\n");
  EXPECT_EQ(TextReport({}), "0 errors, 0 warnings\n");
}

// Of a long line the part around the place is shown, with the mark under it.
TEST(Results, TheMarkStandsUnderItsPlaceInALongLine) {
  const std::string sLine = std::string(500, 'x') + "!" + std::string(500, 'x');
  CheckedFile file;
  file.lines.Add(sLine);
  file.findings = {{&rule::LongText, Severity::Warning, {1, 501, 1}, "", ""},
                   {&rule::LongText, Severity::Warning, {1, 1002, 1}, "", ""}};
  const std::string sReport = TextReport({file});
  const std::size_t nLine = sReport.find('\n') + 1;
  const std::size_t nMark = sReport.find('\n', nLine) + 1;
  EXPECT_EQ(sReport.find('!') - nLine, sReport.find('^') - nMark);
  EXPECT_LT(nMark - nLine, 200U);
}

TEST(Results, Json) {
  EXPECT_EQ(JsonReport(TwoFiles()), std::string(R"({
  "version": 1,
  "tool": "trelin-check",
  "toolVersion": ")") + Version + R"(",
  "errors": 1,
  "warnings": 1,
  "findings": [
    {
      "file": "my suite/TRELIN.CFG",
      "line": 2,
      "column": 2,
      "length": 6,
      "source": "\u0009\"Prüf\" = \\x",
      "severity": "error",
      "rule": "unknown-key",
      "message": "Unknown \"Prüf\".\u000a\u000aGo on.",
      "hint": "Try TITLE."
    },
    {
      "file": "C:\\ENU35000.DLL",
      "number": 35010,
      "severity": "warning",
      "rule": "missing-text",
      "message": "Text 35010 is missing."
    }
  ]
}
)");
}

TEST(Results, SarifNamesFilesByUris) {
  const std::string sReport = SarifReport(TwoFiles());
  for (const char* pPart :
       {"\"version\": \"2.1.0\"", "\"uri\": \"my%20suite/TRELIN.CFG\"",
        "\"uri\": \"file:///C:/ENU35000.DLL\"", "\"startLine\": 2,", "\"endColumn\": 8",
        "\"ruleId\": \"unknown-key\"", "\"level\": \"warning\"",
        "f\\\".\\u000a\\u000aGo on.\\u000a\\u000aTry TITLE."})
    EXPECT_NE(sReport.find(pPart), std::string::npos) << pPart;
}

TEST(Options, AreReadInAnyOrder) {
  const Options options = ParseOptions({"a/b", "--strict", "--format=json", "--source", "../c"});
  EXPECT_EQ(options.sPath, "a\\b");
  EXPECT_EQ(options.sSourceFolder, "..\\c");
  EXPECT_TRUE(options.bStrict);
  EXPECT_EQ(options.format, ReportFormat::Json);
  EXPECT_EQ(ParseOptions({}).sPath, ".");
  EXPECT_EQ(ParseOptions({"--", "--strict"}).sPath, "--strict");
}

TEST(Options, AWrongUseIsNamed) {
  const struct {
    std::vector<std::string> arguments;
    const char* pMessage;
  } cases[] = {
      {{"a", "b"}, "One folder or file can be checked at a time."},
      {{""}, "The name of the folder or file is empty."},
      {{"--verbose"}, "The option \"--verbose\" is unknown."},
      {{"--format"}, "The option \"--format\" needs a value."},
      {{"--format", "xml"}, "The format \"xml\" is none of text, json and sarif."},
      {{"--source="}, "The value of the option \"--source\" is empty."},
      {{"--library", "x", "y"},
       "Either a setup list or a string library can be checked at a time."},
  };
  for (const auto& c : cases) {
    try {
      ParseOptions(c.arguments);
      ADD_FAILURE() << "accepted: " << c.pMessage;
    } catch (const UsageError& error) {
      EXPECT_STREQ(error.what(), c.pMessage);
    }
  }
}

}  // namespace
}  // namespace trelin
