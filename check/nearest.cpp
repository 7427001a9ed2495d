#include "check/nearest.h"

#include <algorithm>
#include <vector>

namespace trelin {

// The optimal string alignment distance, row by row.
std::size_t EditDistance(std::string_view sOne, std::string_view sOther) {
  const std::size_t nWidth = sOther.size() + 1;
  std::vector<std::size_t> before(nWidth);
  std::vector<std::size_t> above(nWidth);
  std::vector<std::size_t> row(nWidth);
  for (std::size_t j = 0; j < nWidth; ++j) row[j] = j;
  for (std::size_t i = 1; i <= sOne.size(); ++i) {
    before.swap(above);
    above.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j < nWidth; ++j) {
      const std::size_t nChange = sOne[i - 1] == sOther[j - 1] ? 0 : 1;
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + nChange});
      const bool bSwapped =
          i > 1 && j > 1 && sOne[i - 1] == sOther[j - 2] && sOne[i - 2] == sOther[j - 1];
      if (bSwapped) row[j] = std::min(row[j], before[j - 2] + 1);
    }
  }
  return row[nWidth - 1];
}

std::string NearestWord(std::string_view sWord, std::span<const char* const> words) {
  const auto nearest =
      std::min_element(words.begin(), words.end(), [sWord](const char* pOne, const char* pOther) {
        return EditDistance(sWord, pOne) < EditDistance(sWord, pOther);
      });
  return *nearest;
}

}  // namespace trelin
