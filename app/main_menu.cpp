#include "app/main_menu.h"

#include "app/center_form.h"
#include "suite/row_layout.h"
#include "texts/numbers.h"
#include "texts/paths.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

// For the steps that bring products into view: one that fails is left out, and the
// menu opens all the same.
void IgnoringErrors(frmMainMenu& form, void (frmMainMenu::*step)()) {
  try {
    (form.*step)();
  } catch (...) {
    return;
  }
}

void LayOut(Label& label, const LabelPlace& place, Twips rise) {
  label.SetBounds(place.left, place.top - rise, place.width, place.height);
  label.SetFont(place.font);
}

}  // namespace

frmMainMenu::frmMainMenu(std::string sSourceFolder)
    : Form(FormBorder::FixedSingle, true, 8520, 6060),
      picList(*this),
      picListItem(picList, Rows),
      picIcon(picListItem, Rows),
      lblTitle(picListItem, Rows),
      lblDescription(picListItem, Rows),
      lblStatus(picListItem, Rows),
      VScroll(picList),
      cmdSetup(*this),
      cmdReadMe(*this),
      cmdExit(*this),
      Timer1(*this),
      imlIcons(32, 32, Color::ListMask),
      sSourceFolder_(std::move(sSourceFolder)) {
  SetIcon(Picture::ProgramIcon());
  imlIcons.Add("Default", Picture::ProgramIcon());
  Timer1.SetInterval(2500);
  LayOutButtons();
  LayOutList();
  SetTabOrder();
  ConnectEvents();
}

std::array<frmMainMenu::MenuButton, 3> frmMainMenu::Buttons() {
  return {{{cmdSetup, TextNumber::SetupButton, &frmMainMenu::cmdSetup_Click},
           {cmdReadMe, TextNumber::ReadMeButton, &frmMainMenu::cmdReadMe_Click},
           {cmdExit, TextNumber::ExitButton, &frmMainMenu::cmdExit_Click}}};
}

void frmMainMenu::LayOutButtons() {
  Twips top = 120;
  for (const MenuButton& row : Buttons()) {
    row.button.SetBounds(7200, top, 1125, 345);
    top += 390;
  }
  cmdSetup.SetDefault();
  cmdExit.SetCancel();
}

void frmMainMenu::LayOutList() {
  picList.SetBounds(75, 120, 6975, 5820);
  picList.SetBorder(BoxBorder::Sunken);
  picList.SetRole(BoxRole::List);
  picList.SetTabStop(false);  // it is covered by its rows, to which Tab goes
  VScroll.SetBounds(6660, 0, 255, 5760);
  for (std::int16_t i = 0; i < Rows; ++i) LayOutRow(i);
}

void frmMainMenu::LayOutRow(std::int16_t Index) {
  const Twips rise = Index == 0 ? TopRowRise : 0;
  picListItem[Index].SetRole(BoxRole::ListItem);
  picIcon[Index].SetRole(BoxRole::Button);
  picListItem[Index].SetVisible(false);
  picListItem[Index].SetBounds(0, 1440.0F * static_cast<Twips>(Index), 6645, 1440);
  picIcon[Index].SetBounds(120, 120, 1365, 1185);
  LayOut(lblTitle[Index], TitlePlace, rise);
  LayOut(lblDescription[Index], DescriptionPlace, rise);
  LayOut(lblStatus[Index], StatusPlace, rise);
}

void frmMainMenu::SetTabOrder() {
  std::int16_t nIndex = 0;
  for (const MenuButton& row : Buttons()) row.button.SetTabIndex(nIndex++);
  picList.SetTabIndex(nIndex++);
  VScroll.SetTabIndex(nIndex++);
  for (PictureBox& picBox : picListItem) picBox.SetTabIndex(nIndex++);
  for (PictureBox& picBox : picIcon) picBox.SetTabIndex(nIndex++);
}

void frmMainMenu::ConnectEvents() {
  OnLoad = [this] { Form_Load(); };
  OnUnload = [this] { Form_Unload(); };
  for (std::int16_t i = 0; i < Rows; ++i) ConnectRowEvents(i);
  picList.OnKey = [this](BoxKey key) { picList_Key(key); };
  VScroll.OnChange = [this] { VScroll_Change(); };
  VScroll.OnScroll = [this] { VScroll_Scroll(); };
  for (const MenuButton& row : Buttons())
    row.button.OnClick = [this, click = row.click] { (this->*click)(); };
  Timer1.OnTimer = [this] { Timer1_Timer(); };
}

void frmMainMenu::ConnectRowEvents(std::int16_t Index) {
  picListItem[Index].OnPaint = [this, Index] { picListItem_Paint(Index); };
  picListItem[Index].OnClick = [this, Index] { picListItem_Click(Index); };
  picListItem[Index].OnKey = [this, Index](BoxKey key) { picListItem_Key(Index, key); };
  picIcon[Index].OnKey = [this, Index](BoxKey key) { picIcon_Key(Index, key); };
  picIcon[Index].OnPaint = [this, Index] { picIcon_Paint(Index); };
  picIcon[Index].OnMouseDown = [this, Index](Twips, Twips) { picIcon_MouseDown(Index); };
  picIcon[Index].OnMouseMove = [this, Index](Twips X, Twips Y) { picIcon_MouseMove(Index, X, Y); };
  picIcon[Index].OnLoseCapture = [this, Index] { picIcon_LoseCapture(Index); };
  picIcon[Index].OnMouseUp = [this, Index](Twips X, Twips Y) { picIcon_MouseUp(Index, X, Y); };
  lblTitle[Index].OnMouseDown = [this, Index] { lblTitle_MouseDown(Index); };
  lblDescription[Index].OnMouseDown = [this, Index] { lblDescription_MouseDown(Index); };
  lblStatus[Index].OnMouseDown = [this, Index] { lblStatus_MouseDown(Index); };
}

bool frmMainMenu::Initialize() {
  objSetupList = std::make_shared<SetupList>();
  objSetupList->Initialize();
  model_.emplace(*objSetupList);
  objSetupList->LoadFromFile(ProgramFile("TRELIN.CFG"));
  return true;
}

void frmMainMenu::Form_Load() {
  SetCaption(LoadResourceString(TextNumber::MenuCaption));
  picList.SetAccessibleName(Caption());
  for (const MenuButton& row : Buttons()) row.button.SetCaption(LoadResourceString(row.caption));
  model_->Load();
  for (PictureBox& picBox : picListItem) picBox.SetBorder(BoxBorder::None);
  for (PictureBox& picBox : picIcon) picBox.SetBorder(BoxBorder::None);
  cmdSetup.SetEnabled(false);
  cmdReadMe.SetEnabled(false);
  CenterForm(*this);

  for (const auto step : {&frmMainMenu::LoadIcons, &frmMainMenu::LoadScrollBar,
                          &frmMainMenu::RefreshRows, &frmMainMenu::FocusList})
    IgnoringErrors(*this, step);
}

// No button has the focus, so that Enter does nothing before a product is selected.
void frmMainMenu::FocusList() { picList.SetFocus(); }

void frmMainMenu::LoadScrollBar() {
  VScroll.SetEnabled(model_->CanScroll());
  if (!model_->CanScroll()) return;
  VScroll.SetMin(1);
  VScroll.SetMax(model_->MaxTopIndex());
  VScroll.SetLargeChange(model_->nVisibleRows());
  VScroll.SetSmallChange(1);
}

void frmMainMenu::Form_Unload() {
  objSetupList->Terminate();
  model_.reset();
  objSetupList.reset();
}

}  // namespace trelin
