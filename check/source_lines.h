#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"

namespace trelin {

// The lines of a setup list as they stand in the file, beside the block
// reader, which gives statements and the numbers of their lines. A line ends
// where it does for that reader.
class SourceLines {
 public:
  SourceLines() = default;
  explicit SourceLines(std::string_view sFile);

  std::int32_t Count() const { return static_cast<std::int32_t>(lines_.size()); }

  // The text of a line, from 1, without its end; empty for a number that there
  // is not.
  const std::string& Line(std::int32_t lLine) const;

  // Where things stand in a line: the statement without the blanks around it;
  // of an entry, the key and the value, or the place for it; of a block start,
  // the type.
  Place Statement(std::int32_t lLine) const;
  Place Key(std::int32_t lLine) const;
  Place Value(std::int32_t lLine) const;
  Place BlockType(std::int32_t lLine) const;

 private:
  Place Trimmed(std::int32_t lLine, std::size_t nBegin, std::size_t nEnd) const;

  std::vector<std::string> lines_;
};

}  // namespace trelin
