#include "check/nearest.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>
#include <vector>

namespace trelin {

namespace {

// Which letters a word has, one bit for each; some share one.
std::uint64_t LettersOf(std::string_view sWord) {
  std::uint64_t letters = 0;
  for (const char c : sWord) letters |= std::uint64_t{1} << (static_cast<unsigned char>(c) % 64U);
  return letters;
}

// No distance is less: letters that one word has and the other lacks take a change each,
// and so does a difference in length.
std::size_t LeastDistance(std::string_view sOne, std::string_view sOther) {
  const std::uint64_t one = LettersOf(sOne), other = LettersOf(sOther);
  const auto nLacking =
      static_cast<std::size_t>(std::max(std::popcount(one & ~other), std::popcount(other & ~one)));
  const auto [nLess, nMore] = std::minmax({sOne.size(), sOther.size()});
  return std::max(nLacking, nMore - nLess);
}

}  // namespace

// The optimal string alignment distance, row by row, as far beside the diagonal as nMost
// letters lead. No row has less than the least of the two above it.
std::size_t EditDistance(std::string_view sOne, std::string_view sOther, std::size_t nMost) {
  if (LeastDistance(sOne, sOther) > nMost) return nMost + 1;
  nMost = std::min(nMost, std::max(sOne.size(), sOther.size()));
  const std::size_t nTooMany = nMost + 1;
  const std::size_t nWidth = sOther.size() + 1;
  std::vector<std::size_t> rows(3 * nWidth, nTooMany);
  std::size_t* before = rows.data();
  std::size_t* above = before + nWidth;
  std::size_t* row = above + nWidth;
  for (std::size_t j = 0; j < std::min(nWidth, nTooMany); ++j) row[j] = j;
  std::size_t nLeast = 0;
  for (std::size_t i = 1; i <= sOne.size(); ++i) {
    std::swap(before, above);
    std::swap(above, row);
    const std::size_t nFirst = i > nMost ? i - nMost : 1;
    const std::size_t nLast = std::min(i + nMost, sOther.size());
    row[nFirst - 1] = i > nMost ? nTooMany : i;
    const std::size_t nLeastAbove = std::exchange(nLeast, row[nFirst - 1]);
    const char c = sOne[i - 1], cBefore = i > 1 ? sOne[i - 2] : '\0';
    for (std::size_t j = nFirst; j <= nLast; ++j) {
      const char cOther = sOther.data()[j - 1];
      std::size_t nLetters = above[j - 1] + (c == cOther ? 0 : 1);
      nLetters = std::min(nLetters, std::min(above[j], row[j - 1]) + 1);
      const bool bSwapped = cBefore == cOther && i > 1 && j > 1 && c == sOther.data()[j - 2];
      if (bSwapped) nLetters = std::min(nLetters, before[j - 2] + 1);
      row[j] = nLetters;
      nLeast = std::min(nLeast, nLetters);
    }
    if (std::min(nLeast, nLeastAbove) > nMost) return nTooMany;
  }
  return row[nWidth - 1];
}

std::string_view NearestWord(std::string_view sWord, std::span<const std::string_view> words,
                             std::size_t nMost) {
  std::string_view sNearest;
  for (const std::string_view sKnown : words) {
    const std::size_t nLetters = EditDistance(sWord, sKnown, nMost);
    if (nLetters > nMost) continue;
    sNearest = sKnown;
    if (nLetters == 0) break;
    nMost = nLetters - 1;
  }
  return sNearest;
}

}  // namespace trelin
