#include "shared/tab_order.h"

namespace trelin {

std::optional<std::size_t> NextTabStop(const std::vector<int>& tabIndexes, std::optional<int> from,
                                       bool bNext) {
  const auto precedes = [bNext](int n1, int n2) { return bNext ? n1 < n2 : n1 > n2; };
  std::optional<std::size_t> first;   // of all
  std::optional<std::size_t> behind;  // the first behind the focus
  const auto improve = [&](std::optional<std::size_t>& best, std::size_t i) {
    if (!best || precedes(tabIndexes[i], tabIndexes[*best])) best = i;
  };
  for (std::size_t i = 0; i < tabIndexes.size(); ++i) {
    improve(first, i);
    if (from && precedes(*from, tabIndexes[i])) improve(behind, i);
  }
  return behind ? behind : first;
}

}  // namespace trelin
