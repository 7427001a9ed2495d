#pragma once

#include <string>

namespace trelin {

// Writes a suite to start from into a folder, which is made if it is not there: a
// setup list that explains itself, of two products and a prerequisite, a picture, and
// command files that stand for the installers and record what they have installed.
// Throws PlatformError, before anything is written, when a file of these names is there
// already, and when one cannot be written.
void WriteNewSuite(const std::string& sFolder);

}  // namespace trelin
