// The input is a setup list that is mended. What comes of it is mended as it is, and the
// launcher meets no more faults in it than in the list.

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

std::ptrdiff_t CountErrors(FakePlatform& platform, const std::string& sList) {
  platform.system.files[Path] = sList;
  Suite suite = SuiteOfList();
  suite.list = ReadCheckedList(suite.list.sName, platform.system.OpenInput(Path));
  const Findings findings = CheckSuite(suite);
  return std::count_if(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::Error; });
}

}  // namespace

void Try(std::string_view sInput) {
  FakePlatform& platform = CleanPlatform();
  for (const char* pName : {"Setup.exe", "read me.exe", "a.bmp"})
    platform.system.files[std::string("C:\\Suite\\") + pName] = "";
  const std::string sBefore(sInput);
  const std::string sAfter = Mend(sBefore, SuiteOfList()).Text();
  CheckEqual(sAfter, Mend(sAfter, SuiteOfList()).Text(), "what is mended stays as it is");
  if (!IsUtf16(sBefore))
    Check(CountErrors(platform, sAfter) <= CountErrors(platform, sBefore),
          "mending brings no errors");
}

}  // namespace trelin
