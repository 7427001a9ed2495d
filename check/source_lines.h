#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "seam/system.h"

namespace trelin {

// The lines of a file as they stand there.
class SourceLines {
 public:
  // Appends one, without its end.
  void Add(std::string_view sLine);

  std::int32_t Count() const { return static_cast<std::int32_t>(ends_.size()); }

  // The text of a line, from 1; empty for a number that there is not. Once all
  // are there it stays where it lies, also when the lines are moved.
  std::string_view Line(std::int32_t lLine) const;

  // All of them, each ended by a line feed.
  std::string_view Text() const { return {text_.data(), text_.size()}; }

 private:
  std::vector<char> text_;
  std::vector<std::uint32_t> ends_;  // of each line in the text
};

// Reads a file of that name with the lines of the launcher. Throws PlatformError when it
// cannot be read or has more than MaxFileBytes.
SourceLines ReadSourceLines(const std::string& sName, std::unique_ptr<InputFile> file);

}  // namespace trelin
