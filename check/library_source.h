#pragma once

#include "check/finding.h"
#include "check/source_lines.h"

namespace trelin {

// Gives findings of a string library the places of its texts in the resource script
// that it is made of: the lines that begin with their numbers. What is not there
// has none.
void PlaceInSource(Findings& findings, const SourceLines& script);

}  // namespace trelin
