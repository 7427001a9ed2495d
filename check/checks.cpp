#include "check/checks.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace trelin {

namespace {

constexpr std::array Table = {
    Check{Rule::LineTooLong, CheckLineLengths},
    Check{Rule::NotAnsi, CheckCodePage},
    Check{Rule::UnknownKey, CheckUnknownKeys},
    Check{Rule::RepeatedKey, CheckRepeatedKeys},
    Check{Rule::TooManyProducts, CheckProductCount},
    Check{Rule::NoTitle, CheckTitles},
    Check{Rule::NoInstaller, CheckInstallersNamed},
    Check{Rule::NoCode, CheckCodesNamed},
    Check{Rule::NoRevision, CheckRevisionsNamed},
    Check{Rule::RepeatedCode, CheckRepeatedCodes},
    Check{Rule::NotOffered, CheckOffered},
    Check{Rule::RevisionNotOffered, CheckRevisionsOffered},
    Check{Rule::Circle, CheckCircles},
    Check{Rule::RevisionOrder, CheckRevisionOrder},
    Check{Rule::PictureMissing, CheckPicturesThere},
    Check{Rule::PictureUnreadable, CheckPicturesLoad},
    Check{Rule::InstallerMissing, CheckInstallersThere},
    Check{Rule::ReadMeMissing, CheckReadMesThere},
    Check{Rule::ReadMeAmbiguous, CheckReadMesClear},
    Check{Rule::NotAProgram, CheckPrograms},
    Check{Rule::LongText, CheckTextsFit},
};

bool StandsBefore(const Finding& one, const Finding& other) {
  return std::tie(one.place.lLine, one.place.lColumn) <
         std::tie(other.place.lLine, other.place.lColumn);
}

}  // namespace

std::span<const Check> ListChecks() { return Table; }

Findings CheckSuite(const Suite& suite) {
  Findings findings = suite.list.faults;
  for (const Check& check : Table) {
    Report report(check.rule, findings);
    check.run(suite, report);
  }
  std::stable_sort(findings.begin(), findings.end(), StandsBefore);
  return findings;
}

}  // namespace trelin
