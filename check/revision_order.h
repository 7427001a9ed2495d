#pragma once

#include <compare>
#include <string>
#include <string_view>
#include <utility>

namespace trelin {

// How revisions are meant to compare: their numbers by value, everything else
// by character. 2.9 is lower than 2.10; 2.9 and 2.09 are the same.
std::weak_ordering CompareByNumbers(std::string_view sOne, std::string_view sOther);

// The same revisions with as many digits in each number as the longer one has,
// so that they sort as texts as their numbers do: 2.9 and 2.10 give 2.09 and
// 2.10.
std::pair<std::string, std::string> SortableSpelling(std::string_view sOne,
                                                     std::string_view sOther);

}  // namespace trelin
