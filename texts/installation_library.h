#pragma once

#include <string>

#include "seam/string_library.h"

namespace trelin {

// The second place of a string library: the folder "Bin" of the main
// measurement application's installation, which that application records as
// InstallDirectory in its settings key. Returns 0 when the key does not open
// or no library lies there. Throws PlatformError when the registry cannot be used.
LibraryHandle LoadInstallationLibrary(const std::string& sFileName);

}  // namespace trelin
