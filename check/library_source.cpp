#include "check/library_source.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <map>
#include <string_view>

namespace trelin {

namespace {

constexpr std::size_t NumberDigits = 5;

// The number that a line begins with, behind spaces; 0 for none.
std::int32_t NumberIn(std::string_view sLine, std::size_t nAt) {
  std::int32_t lNumber = 0;
  const auto [pEnd, error] =
      std::from_chars(sLine.data() + nAt, sLine.data() + sLine.size(), lNumber);
  const bool bWhole = pEnd == sLine.data() + nAt + NumberDigits;
  return error == std::errc() && bWhole ? lNumber : 0;
}

// The first place of each number.
std::map<std::int32_t, Place> PlacesIn(const SourceLines& script) {
  std::map<std::int32_t, Place> places;
  for (std::int32_t l = 1; l <= script.Count(); ++l) {
    const std::string_view sLine = script.Line(l);
    const std::size_t nAt = std::min(sLine.find_first_not_of(" \t"), sLine.size());
    if (const std::int32_t lNumber = NumberIn(sLine, nAt); lNumber != 0)
      places.emplace(lNumber, Place{l, static_cast<std::int32_t>(nAt) + 1, NumberDigits});
  }
  return places;
}

}  // namespace

void PlaceInSource(Findings& findings, const SourceLines& script) {
  const auto places = PlacesIn(script);
  for (Finding& finding : findings) {
    const auto place = places.find(finding.lNumber);
    finding.place = place != places.end() ? place->second : Place{};
  }
  std::stable_sort(findings.begin(), findings.end(), [](const Finding& one, const Finding& other) {
    return one.place.lLine < other.place.lLine;
  });
}

}  // namespace trelin
