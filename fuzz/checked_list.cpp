// The input is the setup list file. What trelin-check says of it is what the
// launcher does with it: the first fault of the format is the launcher's
// message, and unknown keys are as many as it complains of.

#include "check/checked_list.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "check/checks.h"
#include "check/encoding.h"
#include "check/list_reader.h"
#include "fuzz/platform.h"
#include "fuzz/target.h"
#include "suite/setup_list.h"
#include "texts/error.h"

namespace trelin {

namespace {

constexpr const char* Path = "C:\\Suite\\TRELIN.CFG";

// What the launcher says at the end of its reading; empty when it reads the
// whole list.
std::string LaunchersFault() {
  SetupList list;
  list.Initialize();
  std::string sFault;
  try {
    list.LoadFromFile(Path);
  } catch (const Error& error) {
    sFault = error.Description();
  } catch (const std::overflow_error& error) {
    sFault = error.what();
  }
  list.Terminate();
  return sFault;
}

std::string FirstFault(Findings faults) {
  std::erase_if(faults, [](const Finding& f) { return f.severity != Severity::Error; });
  std::stable_sort(faults.begin(), faults.end(), [](const Finding& one, const Finding& other) {
    return one.place.lLine < other.place.lLine;
  });
  return faults.empty() ? "" : faults.front().sMessage;
}

// Whether entries of a product stand behind it. The launcher complains of each and
// stops only at the end of the list.
bool HasEndTooMany(const Findings& faults) {
  return std::any_of(faults.begin(), faults.end(), [](const Finding& fault) {
    return fault.pRule == &rule::AfterEnd && fault.sMessage.starts_with("35013");
  });
}

// All but those that look at files and windows.
Findings RunChecks(const Suite& suite) {
  Findings findings;
  for (const auto& checks : {LineChecks(), KeyChecks(), CodeChecks()}) {
    for (const auto& check : checks) {
      Report report(check.pRule, findings);
      check.run(suite, report);
    }
  }
  return findings;
}

bool HasUnknownKey(const Findings& findings) {
  return std::any_of(findings.begin(), findings.end(),
                     [](const Finding& finding) { return finding.pRule == &rule::UnknownKey; });
}

void CheckPlaces(const Findings& findings, const SourceLines& lines) {
  for (const Finding& finding : findings) {
    const Place& place = finding.place;
    Check(place.lLine >= 0 && place.lLine <= lines.Count(), "a finding is in a line of the file");
    const auto nSize = lines.Line(place.lLine).size();
    Check(place.lColumn >= 1 && place.lLength >= 1 &&
              static_cast<std::size_t>(place.lColumn) <= nSize + 1,
          "a finding is in its line or right behind it");
  }
}

}  // namespace

void Try(std::string_view sInput) {
  FakePlatform& platform = CleanPlatform();
  platform.system.files[Path] = sInput;
  const std::string sFault = LaunchersFault();
  const std::size_t nComplaints =
      static_cast<std::size_t>(platform.system.nBeeps) + platform.system.messages.size();

  const Suite suite{ReadCheckedList("TRELIN.CFG", platform.system.OpenInput(Path)), "C:\\Suite",
                    "C:\\Suite"};
  Check(platform.system.nOpenFiles == 0, "the file is closed");
  CheckPlaces(suite.list.faults, suite.list.lines);
  if (IsUtf16(suite.list.lines.Text())) return;
  if (HasEndTooMany(suite.list.faults))
    Check(!sFault.empty(), "behind an END too many the launcher stops");
  else
    CheckEqual(sFault, FirstFault(suite.list.faults), "the first fault is what the launcher says");

  const Findings findings = RunChecks(suite);
  CheckPlaces(findings, suite.list.lines);
  if (sFault.empty())
    Check(HasUnknownKey(findings) == (nComplaints > 0),
          "the check and the launcher know the same keys");
}

}  // namespace trelin
