#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "suite/block_parser.h"

namespace trelin {

// The items that one kind of block of the setup list file makes, numbered
// from 1 in the order of their blocks. Items are shared with whoever obtains
// them.
template <class ItemType>
class ItemCollection {
 public:
  void Initialize() {}

  // Removes the items, first to last.
  void Terminate() {
    for (auto& item : items_) item.reset();
    items_.clear();
  }

  // Creates an item, lets it read its block, whose start line objParser has
  // just read, and appends it. An error of the reading passes through, and
  // the item is not appended.
  void AddFromFile(BlockParser& objParser) {
    auto item = std::make_shared<ItemType>();
    item->Initialize();
    item->LoadFromFile(objParser);
    items_.push_back(std::move(item));
  }

  std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }

  // Throws std::out_of_range for a number outside 1 to Count.
  std::shared_ptr<ItemType> Item(std::int32_t lNumber) const {
    if (lNumber < 1 || lNumber > Count())
      throw std::out_of_range("There is no item " + std::to_string(lNumber) + " in a list of " +
                              std::to_string(Count()) + ".");
    return items_[static_cast<std::size_t>(lNumber) - 1];
  }

  // The last text, in their order, that is not empty among the items' errors.
  std::string LastError() const {
    for (auto item = items_.rbegin(); item != items_.rend(); ++item)
      if (std::string sError = (*item)->LastError(); !sError.empty()) return sError;
    return "";
  }

  void ClearError() {
    for (const auto& item : items_) item->ClearError();
  }

 private:
  std::vector<std::shared_ptr<ItemType>> items_;
};

}  // namespace trelin
