#pragma once

#include "check/checked_list.h"

namespace trelin {

// Takes the lines of the list apart as the launcher does, into its statements;
// lines that the launcher does not understand become faults, in its words, and
// count as what they were most probably meant to be (see MeantLine).
void ReadStatements(CheckedList& list);

}  // namespace trelin
