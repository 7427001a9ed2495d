#pragma once

#include <string>

namespace trelin {

// System::StartProgram. The program gets the launcher's environment, current
// folder and standard streams and nothing else that it has open. It runs in a
// session of its own, so that it outlives the launcher and its terminal.
void StartHostProgram(const std::string& sCommandLine);

}  // namespace trelin
