// The input is a setup list that is mended. What comes of it is mended as it is, and has no
// more errors than the list in the code page, unless a line or a key is understood that was
// not: what stands in a block or a value is judged only then.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>
#include <string_view>
#include <utility>

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

bool IsError(const Finding& finding) {
  return finding.severity == Severity::Error && !IsGuess(finding);
}

struct Verdict {
  std::ptrdiff_t nErrors = 0;
  std::set<std::pair<std::int32_t, const Rule*>> misread;  // by their lines
};

Verdict Judge(FakePlatform& platform, const std::string& sList) {
  platform.system.files[Path] = sList;
  Suite suite = SuiteOfList();
  suite.list = ReadCheckedList(suite.list.sName, platform.system.OpenInput(Path));
  const Findings findings = CheckSuite(suite);
  Verdict verdict;
  verdict.nErrors = std::count_if(findings.begin(), findings.end(), IsError);
  for (const Finding& finding : suite.list.faults)
    if (IsError(finding)) verdict.misread.emplace(finding.place.lLine, finding.pRule);
  for (const Finding& finding : findings)
    if (finding.pRule == &rule::UnknownKey)
      verdict.misread.emplace(finding.place.lLine, finding.pRule);
  return verdict;
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
  const Verdict before = Judge(platform, Manuscript(sBefore).Text());
  const Verdict after = Judge(platform, sAfter);
  if (before.misread == after.misread)
    Check(after.nErrors <= before.nErrors, "mending brings no errors");
}

}  // namespace trelin
