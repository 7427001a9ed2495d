#include "check/meant_line.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "check/checked_list.h"
#include "check/nearest.h"
#include "seam/platform.h"

namespace trelin {

namespace {

// What is longer was not typed wrong.
constexpr std::size_t LongestLine = 1000;

bool IsKeyOfAnyBlock(const std::string& sWord) {
  for (const BlockKind kind :
       {BlockKind::SetupList, BlockKind::Application, BlockKind::Dependency}) {
    const auto& keys = KeysOf(kind);
    const bool bKnown =
        std::any_of(keys.begin(), keys.end(), [&sWord](const char* pKey) { return sWord == pKey; });
    if (bKnown) return true;
  }
  return false;
}

bool MeansBlock(std::string_view sWord, std::string_view sRest) {
  return sWord.size() > 3 && !sRest.empty() && EditDistance(sWord, "BLOCK") <= 2;
}

bool MeansEnd(std::string_view sWord) {
  return sWord.starts_with("END") || (sWord.size() > 1 && EditDistance(sWord, "END") <= 1);
}

}  // namespace

std::string MeantLine(const std::string& sLine) {
  const std::size_t nFirst = sLine.find_first_not_of(" \t");
  if (nFirst == std::string::npos || sLine.size() > LongestLine) return "";
  const std::size_t nWordEnd = std::min(sLine.find_first_of(" \t:", nFirst), sLine.size());
  const std::size_t nRest = std::min(sLine.find_first_not_of(" \t:", nWordEnd), sLine.size());
  const std::string sRest = sLine.substr(nRest);
  const std::string sWord = sLine.substr(nFirst, nWordEnd - nFirst);
  std::string sUpper = sWord;
  TheSystem().MakeUpperCase(sUpper);
  if (IsKeyOfAnyBlock(sUpper)) return sWord + " = " + sRest;
  if (MeansBlock(sUpper, sRest)) return "BLOCK " + sRest;
  return MeansEnd(sUpper) ? "END" : "";
}

}  // namespace trelin
