#pragma once

#include <memory>
#include <string>

#include "check/checked_list.h"
#include "seam/system.h"

namespace trelin {

// Reads a setup list as the launcher does, but to its end: each fault of the
// format is noted in the launcher's words with its place, and what follows is read
// as it was most probably meant:
//
//   found                              read as
//   no BLOCK SETUPLIST at the start    as if it were there
//   a line that is no statement        what it comes near to, see MeantStatement
//   a list within the list             a part of it
//   a block of an unknown type         what may stand there, if its entries fit; or
//                                      else a block in which nothing is judged
//   APPLICATION in a product           the product's END is missing, unless the
//                                      ENDs behind it show that it is nested
//   entries of a product behind its    that END is one too many, if the ENDs behind
//   END                                it show that, too
//   something behind the last END      products of the same list
//   the end of the file in a block     as if the ENDs were there
//
// sName is that of the file, without its folder. Throws PlatformError when it cannot
// be read or has more than MaxFileBytes.
CheckedList ReadCheckedList(const std::string& sName, std::unique_ptr<InputFile> file);

}  // namespace trelin
