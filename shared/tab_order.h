#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace trelin {

// Which of the controls that Tab stops at gets the focus next, from 0, by their
// tab indexes; of equal ones the first. bNext: as Tab does, else as Shift+Tab. from
// is the index of the control that has the focus: behind the last one, and without
// an index, the order begins anew. Nothing when there is no control.
std::optional<std::size_t> NextTabStop(const std::vector<int>& tabIndexes, std::optional<int> from,
                                       bool bNext);

}  // namespace trelin
