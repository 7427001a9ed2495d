#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Messages are templates with the placeholders "%0%" to "%9%".
namespace trelin {

// One argument of a template: a text, a number (shown in plain decimal), or
// absent, which leaves its placeholder in the text.
class Argument {
 public:
  Argument() = default;
  Argument(const char* sText) : text_(sText) {}
  Argument(const std::string& sText) : text_(sText) {}
  Argument(std::string_view sText) : text_(sText) {}
  Argument(std::integral auto number) : text_(std::to_string(number)) {}

  const std::optional<std::string>& Text() const { return text_; }

 private:
  std::optional<std::string> text_;
};

using ArgumentArray = std::array<Argument, 10>;

constexpr std::size_t LongestMessage = std::size_t{16} * 1024 * 1024;

// The text of sSource with every sFind (not empty, compared exactly) replaced.
// Inserted text is not searched again. Throws std::overflow_error when
// sSource is longer than 32,767 characters, for positions are 16-bit, and
// std::length_error when the result would be longer than LongestMessage.
std::string ReplaceText(const std::string& sSource, const std::string& sFind,
                        const std::string& sReplacement);

// Fills the placeholders of sTemplate, index by index in ascending order, so
// that inserted text is searched for the higher ones. Never throws: an
// argument that cannot be filled in leaves its placeholder.
std::string SubstituteArguments(const std::string& sTemplate, const ArgumentArray& arguments);

}  // namespace trelin
