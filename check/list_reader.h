#pragma once

#include <string>

#include "check/checked_list.h"

namespace trelin {

// Reads the setup list at sPath as the launcher does, but to its end: each
// fault of the format is noted in the launcher's words with its place, and
// what follows is read as it was most probably meant:
//
//   found                              read as
//   no BLOCK SETUPLIST at the start    as if it were there
//   a line that is no statement        what it comes near to, see MeantLine
//   a block of an unknown type         a block of the type that may stand there
//   APPLICATION in a product           the product's END is missing, unless the
//                                      ENDs behind it show that it is nested
//   something behind the last END      products of the same list
//   the end of the file in a block     as if the ENDs were there
//
// Throws PlatformError when the file cannot be read or has more than
// MaxFileBytes.
CheckedList ReadCheckedList(const std::string& sPath);

}  // namespace trelin
