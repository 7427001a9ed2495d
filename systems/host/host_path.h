#pragma once

#include <string>
#include <string_view>

#include "seam/platform_error.h"

namespace trelin {

// Paths of the program are in code page 1252, with backslashes (or slashes),
// and name a file in any letter case. Paths of this system are UTF-8. A name
// of this system that holds a backslash, or a character that the code page
// lacks, has no path in the program.

// The path of this system that sPath stands for. A component that exists as
// it is written is taken; else the first entry of its folder, in byte order,
// that is the same name in another letter case. From the first component
// without either, the path stays as written: opening it fails with the
// system's own reason.
std::string HostPath(const std::string& sPath);

// sPath in this system's words, letter case as it is written.
std::string WrittenPath(std::string_view sPath);

// HostPath for the WrittenPath of something that was looked for and is not there as it
// is written: it is not asked for again.
std::string PathInOtherCase(const std::string& sWritten);

// The path of the program for sHostPath.
std::string ProgramPath(const std::string& sHostPath);

// sHostPath for a message: in code page 1252, with this system's slashes.
std::string ShownPath(const std::string& sHostPath);

// What the system says about an errno value, in English.
std::string SystemReason(int lReason);

PlatformError HostError(const std::string& sOperation, const std::string& sHostPath, int lReason);

// The system would cut a path at a NUL character. Throws PlatformError when
// sPath, a path of the program or a command line, holds one.
void RefuseNul(const char* pOperation, const std::string& sPath);

}  // namespace trelin
