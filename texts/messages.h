#pragma once

#include <cstdint>
#include <tuple>

#include "texts/message_template.h"
#include "texts/text_number.h"

namespace trelin {

// The text of the string number lId, filled. Empty while lookups are disabled.
//
//   FormatResourceString(TextNumber::KeyNotOpened, "SOFTWARE\\Korvanta\\InstallLog")
std::string FormatResourceString(std::int32_t lId, const ArgumentArray& arguments);

template <class... Values>
std::string FormatResourceString(TextNumber number, const Values&... values) {
  static_assert(sizeof...(Values) <= std::tuple_size_v<ArgumentArray>);
  return FormatResourceString(static_cast<std::int32_t>(number),
                              ArgumentArray{Argument(values)...});
}

}  // namespace trelin
