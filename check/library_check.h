#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>

#include "check/finding.h"

namespace trelin {

// The texts of a string library by their numbers, 35000 to 35999.
using LibraryTexts = std::map<std::uint16_t, std::u16string>;

// The rules of string libraries alone.
std::span<const Rule* const> LibraryRules();

// Compares a string library with the program's own: the numbers of its texts,
// their placeholders, and what the menu needs of some of them. The notice may
// have any number of lines.
Findings CompareLibraries(const LibraryTexts& own, const LibraryTexts& library);

// Reads the library at sPath and compares it with the program's own, which lies
// in the program's folder. Throws PlatformError when either cannot be read, and
// std::runtime_error when the program's own is damaged.
Findings CheckLibrary(const std::string& sPath);

}  // namespace trelin
