#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

namespace trelin {

// What a block of the setup list says: the values of its keys, which are empty at first.
// Keys is the array of the keys that the block may have, in upper case. The values lie one
// behind the other in one text: a list of thousands of products is little else than
// values, and texts of their own would take more memory than what they say.
template <const auto& Keys>
class BlockValues {
 public:
  // One of Keys. Another one does not compile.
  struct Key {
    consteval Key(const char* pKey) : nPlace(PlaceOf(pKey)) {
      if (nPlace == Keys.size()) throw "the block has no such key";
    }
    std::size_t nPlace;
  };

  std::string operator[](Key key) const {
    const Place& place = places_[key.nPlace];
    return sValues_.substr(place.nBegin, place.nSize);
  }

  // The key's value from now on. False, and nothing is set, when sKey is none of Keys.
  // Throws std::length_error when there would be more than the places can number.
  bool Set(std::string_view sKey, std::string_view sValue) {
    const std::size_t nKey = PlaceOf(sKey);
    if (nKey == Keys.size()) return false;
    if (sValue.size() > MostBytes - sValues_.size())
      throw std::length_error("The values of a block take more than 4 GB.");
    const auto nBegin = static_cast<std::uint32_t>(sValues_.size());
    sValues_ += sValue;
    places_[nKey] = {nBegin, static_cast<std::uint32_t>(sValue.size())};
    return true;
  }

  void Clear() { *this = {}; }

  // Makes room for so many bytes of values, and gives back what is left of it.
  void Reserve(std::size_t nBytes) { sValues_.reserve(nBytes); }
  void ShrinkToFit() { sValues_.shrink_to_fit(); }

 private:
  static constexpr std::size_t PlaceOf(std::string_view sKey) {
    return static_cast<std::size_t>(std::find(Keys.begin(), Keys.end(), sKey) - Keys.begin());
  }

  static constexpr std::size_t MostBytes = std::numeric_limits<std::uint32_t>::max();

  struct Place {
    std::uint32_t nBegin = 0;
    std::uint32_t nSize = 0;
  };

  std::string sValues_;
  std::array<Place, Keys.size()> places_ = {};
};

}  // namespace trelin
