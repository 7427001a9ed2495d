#pragma once

#include <array>
#include <span>
#include <string>
#include <utility>
#include <vector>

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
  Report(const Rule* pRule, Findings& findings) : pRule_(pRule), findings_(findings) {}

  // Give the finding, until the next one.
  Finding& Error(const Place& place, std::string sMessage, std::string sHint = "") {
    return findings_.emplace_back(
        Finding{pRule_, Severity::Error, place, std::move(sMessage), std::move(sHint)});
  }
  Finding& Warn(const Place& place, std::string sMessage, std::string sHint = "") {
    return findings_.emplace_back(
        Finding{pRule_, Severity::Warning, place, std::move(sMessage), std::move(sHint)});
  }

  // For what the same look finds under another rule.
  Report Under(const Rule& rule) const { return {&rule, findings_}; }

 private:
  const Rule* pRule_;
  Findings& findings_;
};

// A rule and the function that reports what breaks it; the other rules, if any, that the
// function reports under, too.
struct Check {
  const Rule* pRule;
  void (*run)(const Suite& suite, Report& report);
  std::array<const Rule*, 3> others = {};
};

// The checks of a list that has been read, by what they look at: a new one needs
// its rule, its function and its row, all in its file.
std::span<const Check> LineChecks();  // the lines as they stand in the file
std::span<const Check> KeyChecks();   // each block by itself
std::span<const Check> CodeChecks();  // how products and prerequisites stand to each other
std::span<const Check> FileChecks();  // the files that are named
std::span<const Check> FitChecks();   // the room that texts have in the menu

// The faults of the list's format and what all checks find, in the order of
// their places.
Findings CheckSuite(const Suite& suite);

// The names of files that the list spells in another letter case than the disk. Both
// systems find them; other tools for the suite may not.
std::vector<Correction> FileNamesAsOnDisk(const Suite& suite);

// Those of lists and string libraries.
std::vector<const Rule*> AllRules();

}  // namespace trelin
