#pragma once

#include "check/checked_list.h"
#include "check/finding.h"

namespace trelin {

// Takes those of the findings, which are in the order of their places, out that a comment of the
// list allows:
//
//   ; trelin-check: allow no-installer, no-code
//   BLOCK APPLICATION Notes
//
// It counts for the block or the entry that follows, and for what is in that block.
// An allowance that allows nothing becomes a finding itself.
void ApplyAllowances(const CheckedList& list, Findings& findings);

}  // namespace trelin
