#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/control_array.h"
#include "seam/toolkit.h"
#include "suite/list_model.h"
#include "suite/setup_list.h"
#include "texts/text_number.h"

namespace trelin {

// The program's working window: up to four products of the setup list in an
// owner-drawn list with a scroll bar, and the buttons Setup, Read Me and Exit.
// Controls of a row are arrays over the rows 0 to 3.
class frmMainMenu : public Form {
 public:
  static constexpr std::int16_t Rows = ListModel::MaxRows;

  // sSourceFolder: where installers are started from, as it was given.
  explicit frmMainMenu(std::string sSourceFolder);

  // Loads the setup list TRELIN.CFG of the program's folder. Always true;
  // throws what SetupList::LoadFromFile throws. To be called once, before
  // ShowModal.
  bool Initialize();

  PictureBox picList;
  ControlArray<PictureBox> picListItem;
  ControlArray<PictureBox> picIcon;
  ControlArray<Label> lblTitle;
  ControlArray<Label> lblDescription;
  ControlArray<Label> lblStatus;
  ScrollBar VScroll;
  Button cmdSetup;
  Button cmdReadMe;
  Button cmdExit;
  Timer Timer1;
  ImageList imlIcons;

  // The loaded setup list, from Initialize until the window is unloaded.
  std::shared_ptr<SetupList> objSetupList;

 private:
  // main_menu.cpp: layout, opening and closing.
  struct MenuButton {
    Button& button;
    TextNumber caption;
    void (frmMainMenu::*click)();
  };
  std::array<MenuButton, 3> Buttons();  // from the top down, as Tab goes through them
  void LayOutButtons();
  void LayOutList();
  void LayOutRow(std::int16_t Index);
  void SetTabOrder();
  void ConnectEvents();
  void ConnectRowEvents(std::int16_t Index);
  void Form_Load();
  void FocusList();
  void LoadScrollBar();
  void Form_Unload();

  // main_menu_drawing.cpp
  void LoadIcons();
  void LoadIcon(const std::string& sKey, const std::string& sImageFile);
  void ShowItems(std::int16_t& nFirst, std::int16_t nLast);
  void RefreshRows();
  void ShowItem(std::int16_t nItem, std::int16_t nRow);
  void picListItem_Paint(std::int16_t Index);
  void picIcon_Paint(std::int16_t Index);
  void DrawIcon(PictureBox& picBox, std::int16_t nItem, bool bPressed);

  // main_menu_pointer.cpp
  void picListItem_Click(std::int16_t Index);
  void lblTitle_MouseDown(std::int16_t Index);
  void lblDescription_MouseDown(std::int16_t Index);
  void lblStatus_MouseDown(std::int16_t Index);
  void picIcon_MouseDown(std::int16_t Index);
  void picIcon_MouseMove(std::int16_t Index, Twips X, Twips Y);
  void picIcon_MouseUp(std::int16_t Index, Twips X, Twips Y);
  void VScroll_Change();
  void VScroll_Scroll();
  void Timer1_Timer();
  void picIcon_LoseCapture(std::int16_t Index);
  void ShowSelection(ControlArray<PictureBox>& picBoxes);
  void KeepFocusOnSelection();

  // main_menu_keys.cpp
  void picList_Key(BoxKey key);
  void picListItem_Key(std::int16_t Index, BoxKey key);
  void picIcon_Key(std::int16_t Index, BoxKey key);
  void Go(ControlArray<PictureBox>& picBoxes, ListModel::Step step);

  // main_menu_commands.cpp
  void cmdSetup_Click();
  void cmdReadMe_Click();
  void cmdExit_Click();
  void RunSetup(std::int16_t nIndex);
  bool ConfirmSetup(MenuItem& objItem);

  std::string sSourceFolder_;
  std::optional<ListModel> model_;
};

}  // namespace trelin
