#pragma once

#include <string>

// What the platform's main and the program behind it ask of each other. Each
// program links one main, which sets the platform up and calls Main.
namespace trelin {

// The program's entry routine, defined once a program. Lets no exception out.
void Main();

// What the process ends with after Main; 0 unless the program sets it.
int& ExitCode();

// The file name of the running program, without its folder, as it was started.
std::string ProgramName();

}  // namespace trelin
