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
    return sValues_.substr(Begin(key.nPlace), ends_[key.nPlace] - Begin(key.nPlace));
  }

  // The key's value from now on. False, and nothing is set, when sKey is none of Keys.
  // Throws std::length_error when there would be more than the ends can number.
  bool Set(std::string_view sKey, std::string_view sValue) {
    const std::size_t nKey = PlaceOf(sKey);
    if (nKey == Keys.size()) return false;
    const std::size_t nBegin = Begin(nKey);
    const std::size_t nOld = ends_[nKey] - nBegin;
    if (sValue.size() > MostBytes - (sValues_.size() - nOld))
      throw std::length_error("The values of a block take more than 4 GB.");
    sValues_.replace(nBegin, nOld, sValue);
    const auto nMore = static_cast<std::uint32_t>(sValue.size() - nOld);  // may be below 0
    for (std::size_t n = nKey; n < Keys.size(); ++n) ends_[n] += nMore;
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

  // Where the value of a key begins in the values: where that of the key before ends.
  std::size_t Begin(std::size_t nKey) const { return nKey == 0 ? 0 : ends_[nKey - 1]; }

  std::string sValues_;  // in the order of Keys
  std::array<std::uint32_t, Keys.size()> ends_ = {};
};

}  // namespace trelin
