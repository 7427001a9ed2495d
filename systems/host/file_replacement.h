#pragma once

#include <string>
#include <string_view>

#include "systems/host/host_files.h"

namespace trelin {

// The file that a symbolic link finally names, whether it exists or not.
std::string LinkTarget(const std::string& sPath);

// Puts a new file in the place of sTarget, which is no link, with its mode; whoever
// reads finds the whole old one or the whole new one. Gives the new file. Without one,
// nReason has the errno value that says why, and the old one stands.
FileDescriptor PutInPlace(const std::string& sTarget, std::string_view sBytes, int& nReason);

}  // namespace trelin
