#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace trelin {

// An input taken apart from its front. Past its end there are zeros and empty
// lines.
class Input {
 public:
  explicit Input(std::string_view sBytes) : sRest_(sBytes) {}

  bool Empty() const { return sRest_.empty(); }

  // A number from 0 to nCount - 1 (nCount: at most 256).
  std::size_t Below(std::size_t nCount);
  bool Flag() { return Below(2) == 1; }

  // The bytes up to the next line feed. A line that begins with "*" stands for
  // a text of 40,000 characters, more than 16 bits can number, in which what
  // follows repeats.
  std::string Line();

 private:
  std::string_view sRest_;
};

}  // namespace trelin
