#pragma once

#include <cstdint>

#include "suite/block_parser.h"
#include "texts/error.h"
#include "texts/messages.h"
#include "texts/string_resources.h"

namespace trelin {

// A fault in the setup list file: error 5001, whose source is the text of
// string 35009 and whose description is the template lId, filled.
template <class... Values>
Error SetupListError(std::int32_t lId, const Values&... values) {
  return {5001, LoadResourceString(35009), FormatResourceString(lId, values...)};
}

// Throws that error unless the block that objParser has just started is of
// the type sExpected.
inline void ExpectBlockType(const BlockParser& objParser, const char* sExpected) {
  if (objParser.BlockType() != sExpected)
    throw SetupListError(35010, "BLOCK", objParser.CurrentLine(), sExpected, objParser.BlockType());
}

}  // namespace trelin
