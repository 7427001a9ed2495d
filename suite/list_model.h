#pragma once

#include <cstdint>
#include <optional>

#include "suite/setup_list.h"

namespace trelin {

// The menu's list without its window: which products the rows show, which one
// is selected, which commands that allows, and whether an icon is pressed.
// Top row and selection are kept in the setup list. Rows count from 0,
// products from 1.
class ListModel {
 public:
  static constexpr std::int16_t MaxRows = 4;

  // objSetupList outlives the model.
  explicit ListModel(SetupList& objSetupList) : objSetupList_(objSetupList) {}

  // The first view of the list: product 1 in the top row. Throws
  // std::overflow_error for more products than 16 bits can number.
  void Load();

  // The rows in use: the number of products, at most MaxRows; 0 until Load.
  std::int16_t nVisibleRows() const { return nVisibleRows_; }

  // The products of the first and the last row in use.
  std::int16_t FirstItem() const;
  std::int16_t LastItem() const;

  // Whether there are more products than rows, and the last product that the
  // top row can show.
  bool CanScroll() const;
  std::int16_t MaxTopIndex() const;
  void ScrollTo(std::int16_t nTopIndex);

  // Selects the product to which a step leads from the selected one, or else from
  // the list as a whole, and returns the product that the top row has to show, so
  // that it is in view. Nothing in an empty list.
  enum class Step { Up, Down, PageUp, PageDown, Home, End };
  std::optional<std::int16_t> Go(Step step);

  // Selects the product that row nRow shows.
  void Select(std::int16_t nRow);
  std::optional<std::int16_t> SelectedRow() const;  // none while it is not in view
  bool SetupEnabled() const;
  bool ReadMeEnabled() const;

  // Pressing an icon selects its row and captures the pointer until the
  // release. While it is captured, the icon is pressed as long as the pointer
  // is inside its box.
  bool bIconCaptured() const { return bIconCaptured_; }
  bool bIconPressed() const { return bIconPressed_; }
  void PressIcon(std::int16_t nRow);
  bool MovePointer(bool bInside);  // whether the icon now looks different

  struct Release {
    bool bRepaint = false;   // the icon now looks different
    bool bRunSetup = false;  // released over the icon: run Setup
  };
  Release ReleaseIcon(bool bInside);

 private:
  std::int16_t ItemCount() const;
  std::int32_t Target(Step step, std::int32_t lItem) const;

  SetupList& objSetupList_;
  std::int16_t nVisibleRows_ = 0;
  bool bIconCaptured_ = false;
  bool bIconPressed_ = false;
};

}  // namespace trelin
