#include "menu/main_menu.h"

namespace trelin {

namespace {

ListModel::Step StepOf(BoxKey key) {
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
    case BoxKey::Space:  // is no step
      break;
  }
  return ListModel::Step::End;
}

}  // namespace

void frmMainMenu::picList_Key(BoxKey key) {
  if (key != BoxKey::Space) MoveFocus(picListItem, key, std::nullopt);
}

void frmMainMenu::picListItem_Key(std::int16_t Index, BoxKey key) {
  key == BoxKey::Space ? picListItem_Click(Index) : MoveFocus(picListItem, key, Index);
}

// As pressing the icon and releasing it; the icon keeps the focus.
void frmMainMenu::picIcon_Key(std::int16_t Index, BoxKey key) {
  if (key != BoxKey::Space) return MoveFocus(picIcon, key, Index);
  picListItem_Click(Index);
  picIcon[Index].SetFocus();
  RunSetup(objSetupList->CurrentIndex());
}

void frmMainMenu::MoveFocus(ControlArray<PictureBox>& picBoxes, BoxKey key,
                            std::optional<std::int16_t> nRow) {
  const std::optional<ListModel::Place> place = model_->Go(StepOf(key), nRow);
  if (!place) return;
  if (place->nTopIndex != model_->FirstItem()) VScroll.SetValue(place->nTopIndex);
  picBoxes[place->nRow].SetFocus();
}

}  // namespace trelin
