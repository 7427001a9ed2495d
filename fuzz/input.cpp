#include "fuzz/input.h"

#include <algorithm>

namespace trelin {

std::size_t Input::Below(std::size_t nCount) {
  if (sRest_.empty()) return 0;
  const auto nByte = static_cast<unsigned char>(sRest_[0]);
  sRest_.remove_prefix(1);
  return nByte % nCount;
}

std::string Input::Line() {
  const std::size_t nEnd = std::min(sRest_.find('\n'), sRest_.size());
  const std::string_view sLine = sRest_.substr(0, nEnd);
  sRest_.remove_prefix(std::min(nEnd + 1, sRest_.size()));
  if (!bLong_ || sLine.size() < 3 || sLine[0] != '*') return std::string(sLine);
  const std::size_t nLength = std::size_t{200} * static_cast<unsigned char>(sLine[1]);
  std::string sRepeated;
  while (sRepeated.size() < nLength) sRepeated += sLine.substr(2);
  return sRepeated;
}

}  // namespace trelin
