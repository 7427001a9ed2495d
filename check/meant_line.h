#pragma once

#include <string>

namespace trelin {

// What a line that is no statement was most probably meant to be; empty when
// nothing comes near:
//
//   BLCOK APPLICATION A      BLOCK APPLICATION A
//   ENDE                     END
//   PRODUCT Inspection       PRODUCT = Inspection
//   Revision: 2.1            Revision = 2.1
std::string MeantLine(const std::string& sLine);

}  // namespace trelin
