#include "check/checks.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "check/allowances.h"
#include "check/library_check.h"

namespace trelin {

namespace {

bool StandsBefore(const Finding& one, const Finding& other) {
  return std::tie(one.place.lLine, one.place.lColumn) <
         std::tie(other.place.lLine, other.place.lColumn);
}

std::array<std::span<const Check>, 5> ListChecks() {
  return {LineChecks(), KeyChecks(), CodeChecks(), FileChecks(), FitChecks()};
}

void SortByPlaces(Findings& findings) {
  if (!std::is_sorted(findings.begin(), findings.end(), StandsBefore))
    std::stable_sort(findings.begin(), findings.end(), StandsBefore);
}

void AddOnce(std::vector<const Rule*>& rules, const Rule* pRule) {
  if (std::find(rules.begin(), rules.end(), pRule) == rules.end()) rules.push_back(pRule);
}

}  // namespace

Findings CheckSuite(const Suite& suite) {
  Findings findings = suite.list.faults;
  for (const auto& checks : ListChecks()) {
    for (const Check& check : checks) {
      Report report(check.pRule, findings);
      check.run(suite, report);
    }
  }
  SortByPlaces(findings);
  ApplyAllowances(suite.list, findings);
  SortByPlaces(findings);
  return findings;
}

std::vector<const Rule*> AllRules() {
  std::vector<const Rule*> rules = {
      &rule::NotUnderstood, &rule::LineTooLong, &rule::MustBegin,     &rule::WrongBlock,
      &rule::AfterEnd,      &rule::MissingEnd,  &rule::ByteOrderMark, &rule::IdleAllowance,
  };
  for (const auto& checks : ListChecks())
    for (const Check& check : checks) {
      AddOnce(rules, check.pRule);
      for (const Rule* pRule : check.others)
        if (pRule != nullptr) AddOnce(rules, pRule);
    }
  for (const Rule* pRule : LibraryRules()) AddOnce(rules, pRule);
  return rules;
}

}  // namespace trelin
