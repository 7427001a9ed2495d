#include "app/main_menu.h"

namespace trelin {

namespace {

std::optional<ListModel::Step> StepOf(BoxKey key) {
  switch (key) {
    case BoxKey::Up:
      return ListModel::Step::Up;
    case BoxKey::Down:
      return ListModel::Step::Down;
    case BoxKey::PageUp:
      return ListModel::Step::PageUp;
    case BoxKey::PageDown:
      return ListModel::Step::PageDown;
    case BoxKey::Home:
      return ListModel::Step::Home;
    case BoxKey::End:
      return ListModel::Step::End;
    case BoxKey::Space:
    case BoxKey::Reach:
      break;
  }
  return std::nullopt;
}

}  // namespace

// What keys reach is selected, so that they act on the product where the focus is.

void frmMainMenu::picList_Key(BoxKey key) {
  if (const auto step = StepOf(key)) Go(picListItem, *step);
}

void frmMainMenu::picListItem_Key(std::int16_t Index, BoxKey key) {
  const auto step = StepOf(key);
  step ? Go(picListItem, *step) : picListItem_Click(Index);
}

void frmMainMenu::picIcon_Key(std::int16_t Index, BoxKey key) {
  if (const auto step = StepOf(key)) return Go(picIcon, *step);
  model_->Select(Index);
  ShowSelection(picIcon);
  if (key == BoxKey::Space) RunSetup(objSetupList->CurrentIndex());
}

void frmMainMenu::Go(ControlArray<PictureBox>& picBoxes, ListModel::Step step) {
  const std::optional<std::int16_t> nTopIndex = model_->Go(step);
  if (!nTopIndex) return;
  if (*nTopIndex != model_->FirstItem()) VScroll.SetValue(*nTopIndex);
  ShowSelection(picBoxes);
}

}  // namespace trelin
