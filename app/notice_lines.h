#pragma once

namespace trelin {

// Copies the notice from the string library into the registry: below the
// accessor's root the key "Copyright" with "NumLines" (string 35040) and
// "Line1", "Line2", ... (strings 35041, 35042, ...). Lines of a longer notice
// of an earlier start stay. Always true; throws Error when the registry
// refuses, std::invalid_argument or std::overflow_error when string 35040 is
// no 16-bit number (then nothing is written).
bool WriteNoticeLines();

}  // namespace trelin
