#pragma once

#include <cstdlib>
#include <utility>

namespace trelin {

// The pixels of a line from n1 towards n2, without n2: the first and how many.
inline std::pair<int, int> LinePixels(int n1, int n2) {
  return {n1 < n2 ? n1 : n2 + 1, std::abs(n2 - n1)};
}

}  // namespace trelin
