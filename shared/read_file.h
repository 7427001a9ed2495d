#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "seam/system.h"

namespace trelin {

constexpr std::size_t MaxFileBytes = std::size_t{64} * 1024 * 1024;

// What is left of the file in the place of sBytes, whose memory serves again; false when
// that is more than MaxFileBytes. Throws PlatformError when it cannot be read.
bool ReadWholeFile(InputFile& file, std::string& sBytes);

// The same in a new text; nothing when that is more than MaxFileBytes.
std::optional<std::string> ReadWholeFile(InputFile& file);

}  // namespace trelin
