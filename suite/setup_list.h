#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "suite/block_values.h"
#include "suite/item_collection.h"
#include "suite/menu_item.h"

namespace trelin {

using MenuItemCollection = ItemCollection<MenuItem>;

// The model behind the menu: the products of the setup list file, and three
// numbers that the window keeps here and that are stored as they are.
//
//   BLOCK SETUPLIST Suite                       once, the first statement
//   TITLE = Suite Setup
//   BLOCK APPLICATION Inspect                   a product, see MenuItem
//   ...
//   BLOCK DEPENDENCY Runtime                    a prerequisite, see Dependency
//   ...
//   END
//   END
//   END                                         nothing but comments after it
class SetupList {
 public:
  static constexpr std::array<std::string_view, 1> Keys = {"TITLE"};

  // To be called before any other member. Always true.
  bool Initialize();

  // Releases the products. Never throws.
  void Terminate() noexcept;

  // Appends the products of the file sFile (a full path) and, when the whole
  // file was read, has each work out its installation state. An unknown key
  // of the outer block costs a message box. Throws Error for a fault in the
  // file, PlatformError when it cannot be read.
  void LoadFromFile(const std::string& sFile);

  void CheckInstallations();

  // Whether every product has its prerequisites; ends at the first that has
  // not.
  bool CheckDependencies();

  MenuItemCollection& MenuItems() { return *MenuItems_; }

  // The number of the item in the first visible row.
  std::int16_t TopIndex() const { return nTopIndex_; }
  void SetTopIndex(std::int16_t nIndex) { nTopIndex_ = nIndex; }

  // The number of the selected item, 0 while there is none.
  std::int16_t CurrentIndex() const { return nCurrentIndex_; }
  void SetCurrentIndex(std::int16_t nIndex) { nCurrentIndex_ = nIndex; }

  std::int16_t DisplayItems() const { return nDisplayItems_; }
  void SetDisplayItems(std::int16_t nItems) { nDisplayItems_ = nItems; }

  // The last error text among the products, which reading it consumes.
  std::string LastError();

  // The selected product. Throws std::out_of_range while there is none.
  std::shared_ptr<MenuItem> ActiveItem() const { return MenuItems_->Item(nCurrentIndex_); }

 private:
  void ProcessKeyValue(std::string_view sKey, std::string_view sValue);

  std::unique_ptr<MenuItemCollection> MenuItems_;
  BlockValues<Keys> values_;
  std::int16_t nTopIndex_ = 0;
  std::int16_t nCurrentIndex_ = 0;
  std::int16_t nDisplayItems_ = 4;
};

}  // namespace trelin
