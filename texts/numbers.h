#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace trelin {

// Numbers of items, rows and positions are 16-bit. A number that does not fit
// throws std::overflow_error, whose text begins with sWhat ("The number of
// products"); it is never wrapped.
std::int16_t ToInt16(std::int64_t lNumber, std::string_view sWhat);

// Reads a whole decimal number with an optional sign; spaces around it do not
// count. Throws std::invalid_argument when sText is none, and as above when
// it does not fit into 16 bits.
std::int16_t ParseInt16(const std::string& sText, std::string_view sWhat);

}  // namespace trelin
