#pragma once

#include <string>
#include <string_view>

// What every target consists of, and how it says that something is wrong.
namespace trelin {

// Each target defines it: tries the program on one input. An exception that
// comes out is a find, as is whatever the sanitizers report.
void Try(std::string_view sInput);

// Ends the program with the invariant that is broken.
void Check(bool bHolds, const char* sInvariant);
void CheckEqual(const std::string& sExpected, const std::string& sFound, const char* sWhat);

}  // namespace trelin
