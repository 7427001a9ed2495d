#include "texts/numbers.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <stdexcept>

#include "texts/text.h"

namespace trelin {

namespace {

bool IsWholeNumber(std::string_view sDigits) {
  return !sDigits.empty() &&
         std::all_of(sDigits.begin(), sDigits.end(), [](char c) { return c >= '0' && c <= '9'; });
}

[[noreturn]] void ThrowOverflow(std::string_view sWhat, std::string_view sNumber) {
  throw std::overflow_error(std::string(sWhat) + " is " + std::string(sNumber) +
                            "; it must lie between -32768 and 32767.");
}

}  // namespace

std::int16_t ToInt16(std::int64_t lNumber, std::string_view sWhat) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (lNumber < Limits::min() || lNumber > Limits::max())
    ThrowOverflow(sWhat, std::to_string(lNumber));
  return static_cast<std::int16_t>(lNumber);
}

std::int16_t ParseInt16(const std::string& sText, std::string_view sWhat) {
  std::string_view sNumber = TrimSpaces(sText);
  if (sNumber.starts_with('+')) sNumber.remove_prefix(1);
  const bool bNegative = sNumber.starts_with('-') && sNumber.size() == TrimSpaces(sText).size();
  if (!IsWholeNumber(bNegative ? sNumber.substr(1) : sNumber))
    throw std::invalid_argument(std::string(sWhat) + " should be a whole number but reads \"" +
                                sText + "\".");
  std::int16_t nNumber = 0;
  const char* pEnd = sNumber.data() + sNumber.size();
  if (std::from_chars(sNumber.data(), pEnd, nNumber).ec != std::errc())
    ThrowOverflow(sWhat, sNumber);
  return nNumber;
}

}  // namespace trelin
