#pragma once

#include <cstdint>

#include "suite/block_parser.h"
#include "texts/error.h"
#include "texts/messages.h"
#include "texts/string_resources.h"

namespace trelin {

// A fault in the setup list file: error 5001, whose source is the text of
// SetupListTitle and whose description is the text number, filled.
template <class... Values>
Error SetupListError(TextNumber number, const Values&... values) {
  return {5001, LoadResourceString(TextNumber::SetupListTitle),
          FormatResourceString(number, values...)};
}

// Throws that error unless the block that objParser has just started is of
// the type sExpected.
inline void ExpectBlockType(const BlockParser& objParser, const char* sExpected) {
  if (objParser.BlockType() != sExpected)
    throw SetupListError(TextNumber::WrongBlock, "BLOCK", objParser.CurrentLine(), sExpected,
                         objParser.BlockType());
}

}  // namespace trelin
