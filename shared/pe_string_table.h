#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace trelin {

// The string table of a Windows library or program, read from the bytes of
// its file. Nothing about the bytes is taken on trust.
class PeStringTable {
 public:
  // Nothing when the bytes are no library, or one whose string table is
  // damaged anywhere. A library without a string table has an empty one.
  static std::optional<PeStringTable> Parse(std::string sFile);

  // The text of a string number; empty when there is none.
  std::u16string Text(std::uint16_t nId) const;

 private:
  // Where a block of strings lies in the file: no view, as a copy of the
  // table has bytes of its own.
  struct Block {
    std::size_t nOffset;
    std::size_t nLength;
  };

  explicit PeStringTable(std::string sFile);

  std::string sFile_;
  std::map<std::uint32_t, Block> blocks_;  // by block id
};

}  // namespace trelin
