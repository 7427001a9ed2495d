#include "app/start_up.h"

#include <string>

#include "app/notice_lines.h"
#include "seam/platform.h"
#include "texts/error.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

constexpr std::int32_t LocaleId = 1033;  // English; the system's settings are not asked

std::string sSourceFolder;
std::unique_ptr<frmMainMenu> objMainMenu;
std::unique_ptr<frmMicrosoft> objMicrosoft;

void StartUpSteps() {
  sSourceFolder = TheSystem().CommandLineText();
  if (sSourceFolder.empty()) sSourceFolder = TheSystem().ProgramFolder();
  ResetStringResources();
  InitStringResources(LocaleId);
  WriteNoticeLines();
  objMicrosoft = std::make_unique<frmMicrosoft>();
}

}  // namespace

const std::string& SourceFolder() { return sSourceFolder; }

frmMainMenu& MainMenu() {
  if (!objMainMenu) objMainMenu = std::make_unique<frmMainMenu>(sSourceFolder);
  return *objMainMenu;
}

frmMicrosoft& Agreement() { return *objMicrosoft; }

bool StartUp() {
  try {
    StartUpSteps();
    return true;
  } catch (...) {
    ShowError();
    CleanUp();
    return false;
  }
}

void CleanUp() noexcept {
  try {
    if (objMainMenu) objMainMenu->Unload();
  } catch (...) {
    // The window goes all the same.
  }
  objMainMenu.reset();
}

void ReleaseAgreement() noexcept { objMicrosoft.reset(); }

}  // namespace trelin
