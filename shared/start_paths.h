#pragma once

#include "shared/command_line.h"

namespace trelin {

// What StartProgram takes for a file to start, and for a folder. Paths are
// those of the program. Implemented once a platform.
PathTests StartPathTests();

}  // namespace trelin
