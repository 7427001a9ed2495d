#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace trelin {

// The numbers of the ANSI code pages of Windows that have all characters of a text, such
// as 1250 for one in Polish; none for letters of two of them, or of a script that has none.
// Without a value for a text in Chinese, Japanese or Korean, whose pages are not known here.
std::optional<std::vector<int>> CodePagesOf(std::u16string_view sText);

}  // namespace trelin
