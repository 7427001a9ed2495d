#pragma once

#include <windows.h>

#include <string>

#include "seam/platform_error.h"

namespace trelin {

// What the system says about an error code, in the user's language, without
// the full stop.
std::string SystemReason(DWORD lReason);

PlatformError WindowsError(const std::string& sOperation, const std::string& sPath,
                           DWORD lReason = GetLastError());

// The system would cut a path at a NUL character. Throws PlatformError when
// sPath, a path or a command line, holds one.
void RefuseNul(const char* pOperation, const std::string& sPath);

}  // namespace trelin
