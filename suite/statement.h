#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace trelin {

// A line of a setup list, taken apart by the grammar of BlockParser. The words
// are parts of the line, spelt as there; where they begin tells their column, and
// an empty one begins where its text would.
struct Statement {
  enum class Kind { None, StartBlock, EndBlock, KeyValue, NotUnderstood };

  Kind kind = Kind::None;     // None: a blank line or a comment
  std::string_view sWord;     // the type of a block start, the key of an entry
  std::string_view sRest;     // the name of a block start, the value of an entry
  std::string_view sContent;  // the line without the spaces around it
};

// The functions take a line and its number, from 1. They throw
// std::overflow_error, whose text names the line, when a tab, the first "=" or
// a space between words stands beyond position 32,767.

// The line with each tab replaced by one space.
std::string ReplaceTabs(std::string_view sLine, std::int32_t lLine);

// A line without tabs.
Statement SplitStatement(std::string_view sLine, std::int32_t lLine);

// The same, for one that is known to be no block start and no block end, without the
// spaces around it.
Statement SplitEntry(std::string_view sLine, std::int32_t lLine);

}  // namespace trelin
