#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string_view>

namespace trelin {

constexpr std::size_t AnyDistance = std::string_view::npos;

// The number of letters to put in, leave out, replace or swap with their
// neighbour that make one word of the other; where that are more than nMost, some
// number that is more.
std::size_t EditDistance(std::string_view sOne, std::string_view sOther,
                         std::size_t nMost = AnyDistance);

inline bool IsNear(std::string_view sOne, std::string_view sOther, std::size_t nMost) {
  return EditDistance(sOne, sOther, nMost) <= nMost;
}

// The word that is nearest to sWord, of equally near ones the first; empty when all are
// farther than nMost.
std::string_view NearestWord(std::string_view sWord, std::span<const std::string_view> words,
                             std::size_t nMost = AnyDistance);
inline std::string_view NearestWord(std::string_view sWord,
                                    std::initializer_list<std::string_view> words,
                                    std::size_t nMost = AnyDistance) {
  return NearestWord(sWord, std::span(words.begin(), words.size()), nMost);
}

}  // namespace trelin
