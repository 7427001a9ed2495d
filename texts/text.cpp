#include "texts/text.h"

#include "seam/platform.h"

namespace trelin {

std::string Counted(std::size_t nCount, const std::string& sThing) {
  return std::to_string(nCount) + " " + sThing + (nCount == 1 ? "" : "s");
}

std::string WithoutControls(std::string sText) {
  std::replace_if(
      sText.begin(), sText.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return sText;
}

std::string UpperCase(std::string_view sText) {
  std::string sUpper(sText);
  TheSystem().MakeUpperCase(sUpper);
  return sUpper;
}

}  // namespace trelin
