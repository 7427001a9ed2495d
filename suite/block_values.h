#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
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
  bool Set(std::string_view sKey, std::string_view sValue) {
    const std::size_t nPlace = PlaceOf(sKey);
    if (nPlace == Keys.size()) return false;
    const std::size_t nOldSize = ends_[nPlace] - Begin(nPlace);
    sValues_.replace(Begin(nPlace), nOldSize, sValue);
    for (std::size_t n = nPlace; n < Keys.size(); ++n) ends_[n] += sValue.size() - nOldSize;
    return true;
  }

  // Empties the values, and makes room for those of a usual block.
  void Clear() {
    constexpr std::size_t UsualBytes = 30;  // of a value
    *this = {};
    sValues_.reserve(Keys.size() * UsualBytes);
  }

  // Gives back what is left of that room.
  void ShrinkToFit() { sValues_.shrink_to_fit(); }

 private:
  static constexpr std::size_t PlaceOf(std::string_view sKey) {
    return static_cast<std::size_t>(std::find(Keys.begin(), Keys.end(), sKey) - Keys.begin());
  }

  std::size_t Begin(std::size_t nPlace) const { return nPlace == 0 ? 0 : ends_[nPlace - 1]; }

  std::string sValues_;
  std::array<std::size_t, Keys.size()> ends_ = {};  // in it, in the order of Keys
};

}  // namespace trelin
