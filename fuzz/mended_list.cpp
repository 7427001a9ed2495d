// The input is a setup list that is mended. What comes of it is mended as it is, and has
// errors in no more lines than the list has once it is in the code page. In one line there
// may be more: of a misspelt key only the name was judged, and not the value.

#include <memory>
#include <set>

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

std::size_t FaultyLines(FakePlatform& platform, const std::string& sList) {
  platform.system.files[Path] = sList;
  Suite suite = SuiteOfList();
  suite.list = ReadCheckedList(suite.list.sName, platform.system.OpenInput(Path));
  std::set<std::int32_t> lines;
  for (const Finding& finding : CheckSuite(suite))
    if (finding.severity == Severity::Error && !IsGuess(finding)) lines.insert(finding.place.lLine);
  return lines.size();
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
  Check(FaultyLines(platform, sAfter) <= FaultyLines(platform, sInCodePage),
        "mending brings no faulty lines");
}

}  // namespace trelin
