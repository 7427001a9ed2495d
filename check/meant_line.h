#pragma once

#include <string>
#include <string_view>

#include "suite/statement.h"

namespace trelin {

// What a line that is no statement was most probably meant to be; its kind is
// None when nothing comes near:
//
//   BLCOK APPLICATION A      BLOCK APPLICATION A
//   APPLICATION A            BLOCK APPLICATION A
//   ENDE                     END
//   PRODUCT Inspection       PRODUCT = Inspection
//   Revision: 2.1            Revision = 2.1
//
// sLine has no tabs.
Statement MeantStatement(std::string_view sLine);

// The statement as a line that the launcher understands.
std::string Written(const Statement& statement);

}  // namespace trelin
