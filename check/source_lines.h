#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace trelin {

// The lines of a setup list as they stand in the file.
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

}  // namespace trelin
