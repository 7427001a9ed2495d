#pragma once

#include <span>
#include <string>
#include <utility>

#include "check/checked_list.h"
#include "check/finding.h"

namespace trelin {

// What is checked: a setup list and the folders that it is about.
struct Suite {
  CheckedList list;
  std::string sFolder;        // that of the list, as a path of the program
  std::string sSourceFolder;  // that installers are started from
};

// Where a check puts what it finds, under its own rule.
class Report {
 public:
  Report(Rule rule, Findings& findings) : rule_(rule), findings_(findings) {}

  void Error(const Place& place, std::string sMessage, std::string sHint = "") {
    findings_.push_back({rule_, Severity::Error, place, std::move(sMessage), std::move(sHint)});
  }
  void Warn(const Place& place, std::string sMessage, std::string sHint = "") {
    findings_.push_back({rule_, Severity::Warning, place, std::move(sMessage), std::move(sHint)});
  }

 private:
  Rule rule_;
  Findings& findings_;
};

using CheckFunction = void (*)(const Suite& suite, Report& report);

struct Check {
  Rule rule;
  CheckFunction run;
};

// Everything that is checked in a list once it has been read.
std::span<const Check> ListChecks();

// The faults of the list's format and what all checks find, in the order of
// their places.
Findings CheckSuite(const Suite& suite);

// One function a rule; which ones there are, and what they report, is in
// rules.h.
void CheckLineLengths(const Suite& suite, Report& report);
void CheckCodePage(const Suite& suite, Report& report);
void CheckUnknownKeys(const Suite& suite, Report& report);
void CheckRepeatedKeys(const Suite& suite, Report& report);
void CheckProductCount(const Suite& suite, Report& report);
void CheckTitles(const Suite& suite, Report& report);
void CheckInstallersNamed(const Suite& suite, Report& report);
void CheckCodesNamed(const Suite& suite, Report& report);
void CheckRevisionsNamed(const Suite& suite, Report& report);
void CheckRepeatedCodes(const Suite& suite, Report& report);
void CheckOffered(const Suite& suite, Report& report);
void CheckRevisionsOffered(const Suite& suite, Report& report);
void CheckCircles(const Suite& suite, Report& report);
void CheckRevisionOrder(const Suite& suite, Report& report);
void CheckPicturesThere(const Suite& suite, Report& report);
void CheckPicturesLoad(const Suite& suite, Report& report);
void CheckInstallersThere(const Suite& suite, Report& report);
void CheckReadMesThere(const Suite& suite, Report& report);
void CheckReadMesClear(const Suite& suite, Report& report);
void CheckPrograms(const Suite& suite, Report& report);
void CheckTextsFit(const Suite& suite, Report& report);

}  // namespace trelin
