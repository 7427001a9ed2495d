#include <algorithm>

#include "app/main_menu.h"
#include "seam/platform_error.h"
#include "texts/error.h"

namespace trelin {

namespace {

// The left and top edges count as outside.
bool IsInside(const PictureBox& picBox, Twips X, Twips Y) {
  return X > 0 && X < picBox.Width() && Y > 0 && Y < picBox.Height();
}

}  // namespace

void frmMainMenu::picListItem_Click(std::int16_t Index) {
  model_->Select(Index);
  ShowSelection(picListItem);
}

// With the focus on the selected product's row or icon, away from a button, so
// that Enter is Setup.
void frmMainMenu::ShowSelection(ControlArray<PictureBox>& picBoxes) {
  cmdSetup.SetEnabled(model_->SetupEnabled());
  cmdReadMe.SetEnabled(model_->ReadMeEnabled());
  RefreshRows();
  if (const std::optional<std::int16_t> nRow = model_->SelectedRow()) picBoxes[*nRow].SetFocus();
}

// No row or icon has the focus but the selected product's: while that is out of
// view, the list has it.
void frmMainMenu::KeepFocusOnSelection() {
  const auto haveFocus = [](ControlArray<PictureBox>& picBoxes) {
    return std::any_of(picBoxes.begin(), picBoxes.end(),
                       [](const PictureBox& picBox) { return picBox.HasFocus(); });
  };
  ControlArray<PictureBox>& picBoxes = haveFocus(picIcon) ? picIcon : picListItem;
  if (!haveFocus(picBoxes) && !picList.HasFocus()) return;
  const std::optional<std::int16_t> nRow = model_->SelectedRow();
  (nRow ? picBoxes[*nRow] : picList).SetFocus();
}

void frmMainMenu::lblTitle_MouseDown(std::int16_t Index) { picListItem_Click(Index); }

void frmMainMenu::lblDescription_MouseDown(std::int16_t Index) { picListItem_Click(Index); }

void frmMainMenu::lblStatus_MouseDown(std::int16_t Index) { picListItem_Click(Index); }

void frmMainMenu::picIcon_MouseDown(std::int16_t Index) {
  PictureBox& picBox = picIcon[Index];
  picBox.CapturePointer();
  model_->PressIcon(Index);
  ShowSelection(picListItem);
  picBox.Refresh();
}

void frmMainMenu::picIcon_MouseMove(std::int16_t Index, Twips X, Twips Y) {
  PictureBox& picBox = picIcon[Index];
  if (model_->MovePointer(IsInside(picBox, X, Y))) picBox.Refresh();
}

void frmMainMenu::picIcon_MouseUp(std::int16_t Index, Twips X, Twips Y) {
  if (!model_->bIconCaptured()) return;
  PictureBox& picBox = picIcon[Index];
  picBox.ReleasePointer();
  const ListModel::Release release = model_->ReleaseIcon(IsInside(picBox, X, Y));
  if (release.bRepaint) picBox.Refresh();
  if (release.bRunSetup) RunSetup(objSetupList->CurrentIndex());
}

// Also while Enter, which was pressed meanwhile, has a message box open.
void frmMainMenu::picIcon_LoseCapture(std::int16_t Index) {
  if (model_ && model_->ReleaseIcon(false).bRepaint) picIcon[Index].Refresh();
}

void frmMainMenu::VScroll_Change() {
  model_->ScrollTo(VScroll.Value());
  RefreshRows();
  KeepFocusOnSelection();
  for (PictureBox& picBox : picIcon) picBox.Refresh();
}

void frmMainMenu::VScroll_Scroll() { VScroll_Change(); }

namespace {

// An installer that is at work may take the log away under a check, or leave the
// registry unreadable for a moment. The product then stays as it was.
bool CheckInstallation(MenuItem& objItem) {
  try {
    objItem.CheckInstallation();
    return true;
  } catch (const Error&) {
    return false;
  } catch (const PlatformError&) {
    return false;
  }
}

}  // namespace

// After a check that failed, the next tick looks again.
void frmMainMenu::Timer1_Timer() {
  const auto objItem = objSetupList->ActiveItem();
  if (!CheckInstallation(*objItem) || !objItem->Updated()) return;
  RefreshRows();
  if (const std::optional<std::int16_t> nRow = model_->SelectedRow()) lblStatus[*nRow].Announce();
  Timer1.SetEnabled(false);
}

}  // namespace trelin
