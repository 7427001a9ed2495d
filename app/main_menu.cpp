#include "app/main_menu.h"

#include "app/center_form.h"
#include "suite/row_layout.h"
#include "texts/numbers.h"
#include "texts/paths.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

// From a certain step of Form_Load on, a step that fails is passed over.
void IgnoringErrors(const std::function<void()>& step) {
  try {
    step();
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
  ConnectEvents();
}

void frmMainMenu::LayOutList() {
  picList.SetBounds(75, 120, 6975, 5820);
  picList.SetBorder(BoxBorder::Sunken);
  picList.SetTabIndex(3);
  picList.SetRole(BoxRole::List);
  picList.SetTabStop(false);  // it is covered by its rows, to which Tab goes
  VScroll.SetBounds(6660, 0, 255, 5760);
  VScroll.SetTabIndex(4);
  for (std::int16_t i = 0; i < Rows; ++i) LayOutRow(i);
}

void frmMainMenu::LayOutRow(std::int16_t Index) {
  const Twips rise = Index == 0 ? TopRowRise : 0;
  picListItem[Index].SetRole(BoxRole::ListItem);
  picIcon[Index].SetRole(BoxRole::Button);
  picListItem[Index].SetVisible(false);
  picListItem[Index].SetBounds(0, 1440.0F * static_cast<Twips>(Index), 6645, 1440);
  picListItem[Index].SetTabIndex(static_cast<std::int16_t>(5 + Index));
  picIcon[Index].SetBounds(120, 120, 1365, 1185);
  picIcon[Index].SetTabIndex(static_cast<std::int16_t>(9 + Index));
  LayOut(lblTitle[Index], TitlePlace, rise);
  LayOut(lblDescription[Index], DescriptionPlace, rise);
  LayOut(lblStatus[Index], StatusPlace, rise);
}

void frmMainMenu::LayOutButtons() {
  cmdSetup.SetBounds(7200, 120, 1125, 345);
  cmdSetup.SetDefault();
  cmdSetup.SetTabIndex(0);
  cmdReadMe.SetBounds(7200, 510, 1125, 345);
  cmdReadMe.SetTabIndex(1);
  cmdExit.SetBounds(7200, 900, 1125, 345);
  cmdExit.SetCancel();
  cmdExit.SetTabIndex(2);
}

void frmMainMenu::ConnectEvents() {
  OnLoad = [this] { Form_Load(); };
  OnUnload = [this] { Form_Unload(); };
  for (std::int16_t i = 0; i < Rows; ++i) ConnectRowEvents(i);
  picList.OnKey = [this](BoxKey key) { picList_Key(key); };
  VScroll.OnChange = [this] { VScroll_Change(); };
  VScroll.OnScroll = [this] { VScroll_Scroll(); };
  cmdSetup.OnClick = [this] { cmdSetup_Click(); };
  cmdReadMe.OnClick = [this] { cmdReadMe_Click(); };
  cmdExit.OnClick = [this] { cmdExit_Click(); };
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
  cmdSetup.SetCaption(LoadResourceString(TextNumber::SetupButton));
  cmdReadMe.SetCaption(LoadResourceString(TextNumber::ReadMeButton));
  cmdExit.SetCaption(LoadResourceString(TextNumber::ExitButton));
  model_->Load();
  for (PictureBox& picBox : picListItem) picBox.SetBorder(BoxBorder::None);
  for (PictureBox& picBox : picIcon) picBox.SetBorder(BoxBorder::None);
  cmdSetup.SetEnabled(false);
  cmdReadMe.SetEnabled(false);
  CenterForm(*this);

  IgnoringErrors([this] { LoadIcons(); });
  IgnoringErrors([this] { LoadScrollBar(); });
  IgnoringErrors([this] { RefreshRows(); });
  // No button has the focus, so that Enter does nothing before a product is
  // selected.
  IgnoringErrors([this] { picList.SetFocus(); });
}

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
