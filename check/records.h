#pragma once

#include <string>
#include <vector>

#include "check/checked_list.h"

namespace trelin {

// A product as it is asked to stand on a workstation.
struct WantedState {
  std::string sCode;
  std::string sState;  // "not-installed", "installed", "older", "newer" or "damaged"
};

bool IsWantedState(const std::string& sState);

// A registry file of a workstation on which the products and prerequisites of the
// list are in these states, and nothing else is installed. Throws std::invalid_argument,
// with a sentence, for a code that the list does not have.
std::string RecordsOf(const CheckedList& list, const std::vector<WantedState>& states);

}  // namespace trelin
