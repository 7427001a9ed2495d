#include "check/nearest.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace trelin {

namespace {

// No distance is less.
std::size_t SizeDifference(std::string_view sOne, std::string_view sOther) {
  return std::max(sOne.size(), sOther.size()) - std::min(sOne.size(), sOther.size());
}

}  // namespace

// The optimal string alignment distance, row by row. No row has less than the least of
// the two above it.
std::size_t EditDistance(std::string_view sOne, std::string_view sOther, std::size_t nMost) {
  if (SizeDifference(sOne, sOther) > nMost) return nMost + 1;
  const std::size_t nWidth = sOther.size() + 1;
  std::vector<std::size_t> rows(3 * nWidth);
  std::size_t* before = rows.data();
  std::size_t* above = before + nWidth;
  std::size_t* row = above + nWidth;
  for (std::size_t j = 0; j < nWidth; ++j) row[j] = j;
  std::size_t nLeast = 0;
  for (std::size_t i = 1; i <= sOne.size(); ++i) {
    std::swap(before, above);
    std::swap(above, row);
    row[0] = i;
    const std::size_t nLeastAbove = std::exchange(nLeast, i);
    for (std::size_t j = 1; j < nWidth; ++j) {
      std::size_t nLetters = above[j - 1] + (sOne[i - 1] == sOther[j - 1] ? 0 : 1);
      nLetters = std::min(nLetters, std::min(above[j], row[j - 1]) + 1);
      const bool bSwapped =
          i > 1 && j > 1 && sOne[i - 1] == sOther[j - 2] && sOne[i - 2] == sOther[j - 1];
      if (bSwapped) nLetters = std::min(nLetters, before[j - 2] + 1);
      row[j] = nLetters;
      nLeast = std::min(nLeast, nLetters);
    }
    if (std::min(nLeast, nLeastAbove) > nMost) return nMost + 1;
  }
  return row[nWidth - 1];
}

std::string NearestWord(std::string_view sWord, std::span<const char* const> words,
                        std::size_t nMost) {
  const char* pNearest = "";
  for (const char* pWord : words) {
    const std::size_t nLetters = EditDistance(sWord, pWord, nMost);
    if (nLetters > nMost) continue;
    pNearest = pWord;
    if (nLetters == 0) break;
    nMost = nLetters - 1;
  }
  return pNearest;
}

}  // namespace trelin
