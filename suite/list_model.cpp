#include "suite/list_model.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

#include "texts/numbers.h"

namespace trelin {

namespace {

std::int16_t ItemNumber(std::int32_t lNumber) { return ToInt16(lNumber, "The product's number"); }

}  // namespace

std::int16_t ListModel::ItemCount() const {
  const std::int32_t lCount = objSetupList_.MenuItems().Count();
  if (lCount > std::numeric_limits<std::int16_t>::max())
    throw std::overflow_error("The setup list names " + std::to_string(lCount) +
                              " products, but the menu can show 32767 at the most.");
  return static_cast<std::int16_t>(lCount);
}

void ListModel::Load() {
  nVisibleRows_ = std::min(ItemCount(), MaxRows);
  objSetupList_.SetTopIndex(1);
}

std::int16_t ListModel::FirstItem() const { return objSetupList_.TopIndex(); }

std::int16_t ListModel::LastItem() const { return ItemNumber(FirstItem() + nVisibleRows_ - 1); }

bool ListModel::CanScroll() const { return ItemCount() > MaxRows; }

std::int16_t ListModel::MaxTopIndex() const { return ItemNumber(ItemCount() - nVisibleRows_ + 1); }

void ListModel::ScrollTo(std::int16_t nTopIndex) { objSetupList_.SetTopIndex(nTopIndex); }

// May lie outside the list.
std::int32_t ListModel::Target(Step step, std::int32_t lItem) const {
  switch (step) {
    case Step::Up:
      return lItem - 1;
    case Step::Down:
      return lItem + 1;
    case Step::PageUp:
      return lItem - nVisibleRows_;
    case Step::PageDown:
      return lItem + nVisibleRows_;
    case Step::Home:
      return 1;
    case Step::End:
      break;
  }
  return ItemCount();
}

// The list as a whole is entered at its top row.
std::optional<std::int16_t> ListModel::Go(Step step) {
  if (nVisibleRows_ == 0) return std::nullopt;
  const std::int16_t nFrom = objSetupList_.CurrentIndex();
  const bool bEnters = nFrom == 0 && step != Step::Home && step != Step::End;
  const std::int32_t lTarget = bEnters ? FirstItem() : Target(step, nFrom);
  const std::int32_t lItem = std::clamp<std::int32_t>(lTarget, 1, ItemCount());
  objSetupList_.SetCurrentIndex(ItemNumber(lItem));
  return ItemNumber(std::clamp<std::int32_t>(FirstItem(), lItem - nVisibleRows_ + 1, lItem));
}

void ListModel::Select(std::int16_t nRow) {
  objSetupList_.SetCurrentIndex(ItemNumber(FirstItem() + nRow));
}

std::optional<std::int16_t> ListModel::SelectedRow() const {
  const std::int16_t nItem = objSetupList_.CurrentIndex();
  if (nItem == 0 || nItem < FirstItem() || nItem > LastItem()) return std::nullopt;
  return static_cast<std::int16_t>(nItem - FirstItem());
}

bool ListModel::SetupEnabled() const { return objSetupList_.CurrentIndex() != 0; }

bool ListModel::ReadMeEnabled() const {
  return SetupEnabled() && !objSetupList_.ActiveItem()->ReadMeFile().empty();
}

void ListModel::PressIcon(std::int16_t nRow) {
  bIconCaptured_ = true;
  bIconPressed_ = true;
  Select(nRow);
}

bool ListModel::MovePointer(bool bInside) {
  return bIconCaptured_ && std::exchange(bIconPressed_, bInside) != bInside;
}

ListModel::Release ListModel::ReleaseIcon(bool bInside) {
  if (!std::exchange(bIconCaptured_, false)) return {};
  return {.bRepaint = std::exchange(bIconPressed_, false), .bRunSetup = bInside};
}

}  // namespace trelin
