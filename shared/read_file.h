#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "seam/system.h"

namespace trelin {

constexpr std::size_t MaxFileBytes = std::size_t{64} * 1024 * 1024;

// What is left of the file; nothing when that is more than MaxFileBytes. Throws
// PlatformError when it cannot be read.
std::optional<std::string> ReadWholeFile(InputFile& file);

}  // namespace trelin
