// The input is a text that may be a number, and the bytes of one.

#include "texts/numbers.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>

#include "fuzz/target.h"

namespace trelin {

namespace {

bool Fits(std::int64_t lNumber) { return lNumber >= -32768 && lNumber <= 32767; }

// The number in the text, or one of its sign that does not fit; nothing for no number.
std::optional<std::int64_t> NumberIn(std::string_view sText) {
  while (sText.starts_with(' ')) sText.remove_prefix(1);
  while (sText.ends_with(' ')) sText.remove_suffix(1);
  const bool bNegative = sText.starts_with('-');
  if (bNegative || sText.starts_with('+')) sText.remove_prefix(1);
  if (sText.empty()) return std::nullopt;
  std::int64_t lNumber = 0;
  for (const char c : sText) {
    if (c < '0' || c > '9') return std::nullopt;
    lNumber = std::min<std::int64_t>(lNumber * 10 + (c - '0'), 40000);
  }
  return bNegative ? -lNumber : lNumber;
}

void CheckText(const std::string& sText) {
  const std::optional<std::int64_t> lExpected = NumberIn(sText);
  try {
    Check(lExpected == ParseInt16(sText, "It"), "a number is what its digits say");
  } catch (const std::overflow_error& error) {
    Check(lExpected && !Fits(*lExpected), "what fits does not overflow");
    Check(std::string_view(error.what()).starts_with("It is "), "the error begins with the thing");
  } catch (const std::invalid_argument& error) {
    Check(!lExpected, "a number is understood");
    Check(std::string_view(error.what()).find(sText) != std::string_view::npos ||
              sText.find('\0') != std::string::npos,
          "the error names the text");
  }
}

void CheckNumber(std::int64_t lNumber) {
  try {
    Check(lNumber == ToInt16(lNumber, "It"), "no number is wrapped");
    CheckText(std::to_string(lNumber));
  } catch (const std::overflow_error&) {
    Check(!Fits(lNumber), "what fits does not overflow");
  }
}

}  // namespace

void Try(std::string_view sInput) {
  CheckText(std::string(sInput));
  std::int64_t lNumber = 0;
  std::memcpy(&lNumber, sInput.data(), std::min(sizeof lNumber, sInput.size()));
  CheckNumber(lNumber);
  CheckNumber(lNumber % 65536);
}

}  // namespace trelin
