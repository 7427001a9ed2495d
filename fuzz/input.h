#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace trelin {

// What is longer belongs to the pass of long inputs.
constexpr std::size_t LongestShortInput = 512;

// An input taken apart from its front. Past its end there are zeros and empty
// lines.
class Input {
 public:
  explicit Input(std::string_view sBytes)
      : sRest_(sBytes), bLong_(sBytes.size() > LongestShortInput) {}

  bool Empty() const { return sRest_.empty(); }

  // A number from 0 to nCount - 1 (nCount: at most 256).
  std::size_t Below(std::size_t nCount);
  bool Flag() { return Below(2) == 1; }

  // The bytes up to the next line feed. In a long input, the text of a line of "*", a
  // byte and a text repeats until it has 200 times as many characters as the byte says:
  // up to 51,000, more than 16 bits can number.
  std::string Line();

 private:
  std::string_view sRest_;
  bool bLong_;
};

}  // namespace trelin
