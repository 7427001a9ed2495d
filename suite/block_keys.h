#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace trelin {

// A key of a block of the setup list, in upper case, and what it sets.
template <class Item>
struct BlockKey {
  std::string_view sKey;
  std::string Item::*pMember;
};

// False, and nothing is set, when sKey is not among the keys of the item's block.
template <class Item, std::size_t nKeys>
bool SetByKey(Item& item, const std::array<BlockKey<Item>, nKeys>& keys, std::string_view sKey,
              std::string_view sValue) {
  const auto found =
      std::find_if(keys.begin(), keys.end(), [sKey](const auto& key) { return sKey == key.sKey; });
  if (found == keys.end()) return false;
  item.*found->pMember = sValue;
  return true;
}

}  // namespace trelin
