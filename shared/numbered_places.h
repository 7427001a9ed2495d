#pragma once

#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <optional>

namespace trelin {

// Finds the elements of a list or a tree by their numbers, from 0: the next one or the
// one before in one step, others from the nearest place that is known.
template <class Container>
class NumberedPlaces {
 public:
  using Place = typename Container::const_iterator;

  // nIndex: less than their number.
  Place At(const Container& elements, std::size_t nIndex) const {
    const auto nPlace = static_cast<std::ptrdiff_t>(nIndex);
    const auto nFromEnd = nPlace - static_cast<std::ptrdiff_t>(elements.size());
    Place start = nPlace <= -nFromEnd ? elements.begin() : elements.end();
    std::ptrdiff_t nSteps = nPlace <= -nFromEnd ? nPlace : nFromEnd;
    if (const std::ptrdiff_t nFromLast = nPlace - nLast_;
        last_ && std::abs(nFromLast) < std::abs(nSteps)) {
      start = *last_;
      nSteps = nFromLast;
    }
    nLast_ = nPlace;
    last_ = std::next(start, nSteps);
    return *last_;
  }

  // To be called when elements come or go.
  void Forget() { last_.reset(); }

 private:
  mutable std::optional<Place> last_;  // the place asked for last
  mutable std::ptrdiff_t nLast_ = 0;   // and its number
};

}  // namespace trelin
