#include "texts/text.h"

#include "seam/platform.h"

namespace trelin {

std::string UpperCase(std::string_view sText) {
  std::string sUpper(sText);
  TheSystem().MakeUpperCase(sUpper);
  return sUpper;
}

}  // namespace trelin
