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
  if (!sLine.starts_with('*')) return std::string(sLine);
  std::string sRepeated;
  while (sLine.size() > 1 && sRepeated.size() < 40'000) sRepeated += sLine.substr(1);
  return sRepeated;
}

}  // namespace trelin
