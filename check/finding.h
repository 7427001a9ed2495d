#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "check/rules.h"

namespace trelin {

// A stretch of one line of the checked file. Lines and columns count from 1,
// a column is one character of the ANSI code page; a tab is one. Line 0 is
// the file as a whole.
struct Place {
  std::int32_t lLine = 0;
  std::int32_t lColumn = 1;
  std::int32_t lLength = 1;

  bool operator==(const Place&) const = default;
};

// What takes the place of a stretch of a line. Each line feed in it ends a line of
// its own, which goes in front of the line place.lLine; behind the last line there
// is one more place for these.
struct Correction {
  Place place;
  std::string sText;
};

// An error is what the launcher's user would meet: a message, a beep, a
// product that cannot be installed or a state that is wrong. A warning is what
// works, but is hardly meant.
enum class Severity { Warning, Error };

// Texts are in the ANSI code page and may have several lines.
struct Finding {
  const Rule* pRule;
  Severity severity;
  Place place;
  std::string sMessage;
  std::string sHint;         // what to do; may be empty
  std::int32_t lNumber = 0;  // of the text of a string library; 0 in a setup list
  std::optional<Correction> correction = std::nullopt;  // where there is one safe answer
};

using Findings = std::vector<Finding>;

}  // namespace trelin
