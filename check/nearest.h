#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace trelin {

// The number of letters to put in, leave out, replace or swap with their
// neighbour that make one word of the other.
std::size_t EditDistance(std::string_view sOne, std::string_view sOther);

// The word that is nearest to sWord; of equally near ones the first.
std::string NearestWord(std::string_view sWord, std::span<const char* const> words);
inline std::string NearestWord(std::string_view sWord, std::initializer_list<const char*> words) {
  return NearestWord(sWord, std::span(words.begin(), words.size()));
}

}  // namespace trelin
