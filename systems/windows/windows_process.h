#pragma once

#include <string>

namespace trelin {

// System::StartProgram. A program whose name lacks its extension is found with
// .exe behind it. It gets the launcher's environment and current folder, no
// handles, and sCommandLine as it is; but an unquoted program whose path holds
// a space is put in quotes, so that it can tell its name from its arguments.
void StartWindowsProgram(const std::string& sCommandLine);

}  // namespace trelin
