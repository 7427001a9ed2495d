#pragma once

#include <string>

#include "check/checks.h"
#include "check/manuscript.h"

namespace trelin {

// The setup list of a suite with everything mended that has one safe answer: its code
// page and mark, line ends of several kinds, and each finding that has a correction. A
// file that has been mended is not changed again.
//
// sFile has the bytes of the list, suite its name and the folders.
Manuscript Mend(const std::string& sFile, Suite suite);

}  // namespace trelin
