// The input is a setup list that is mended. What comes of it is mended as it is, and has no
// more errors than the list has once it is in the code page.

#include <algorithm>
#include <memory>

#include "check/encoding.h"
#include "check/list_reader.h"
#include "check/mend.h"
#include "fuzz/platform.h"
#include "fuzz/target.h"

namespace trelin {

namespace {

constexpr const char* Path = "C:\\Suite\\TRELIN.CFG";

Suite SuiteOfList() {
  Suite suite;
  suite.sFolder = suite.sSourceFolder = "C:\\Suite";
  suite.list.sName = "TRELIN.CFG";
  return suite;
}

// Whether a text is in the ANSI code page is a guess by the whole file: a letter that
// showed it may be gone.
bool IsGuess(const Finding& finding) { return finding.pRule == &rule::NotAnsi; }

std::size_t Errors(FakePlatform& platform, const std::string& sList) {
  platform.system.files[Path] = sList;
  Suite suite = SuiteOfList();
  suite.list = ReadCheckedList(suite.list.sName, platform.system.OpenInput(Path));
  const Findings findings = CheckSuite(suite);
  return static_cast<std::size_t>(
      std::count_if(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.severity == Severity::Error && !IsGuess(finding);
      }));
}

}  // namespace

void Try(std::string_view sInput) {
  FakePlatform& platform = CleanPlatform();
  for (const char* pName : {"Setup.exe", "read me.exe", "a.bmp"})
    platform.system.files[std::string("C:\\Suite\\") + pName] = "";
  const std::string sBefore(sInput);
  const std::string sAfter = Mend(sBefore, SuiteOfList()).Text();
  if (sAfter == sBefore) return;
  CheckEqual(sAfter, Mend(sAfter, SuiteOfList()).Text(), "what is mended stays as it is");
  if (IsUtf16(sBefore)) return;
  const std::string sInCodePage = Manuscript(sBefore).Text();
  Check(Errors(platform, sAfter) <= Errors(platform, sInCodePage), "mending brings no errors");
}

}  // namespace trelin
