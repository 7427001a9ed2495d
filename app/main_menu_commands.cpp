#include "app/main_menu.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "texts/paths.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

bool ShowFailure(const PlatformError& error) {
  TheSystem().ShowMessage(error.what(), MessageIcon::Critical, MessageButtons::Ok,
                          LoadResourceString(TextNumber::MenuCaption));
  return false;
}

// Whether the program was started; the user has been told if it was not.
bool StartProgram(const std::string& sCommandLine) {
  try {
    TheSystem().StartProgram(sCommandLine);
    return true;
  } catch (const PlatformError& error) {
    return ShowFailure(error);
  }
}

// The same for an installer. Its path is put into quotation marks; such marks in the
// folder would end them early, and another program would be meant.
bool StartInstaller(const std::string& sFolder, const std::string& sInstaller) {
  if (sFolder.find('"') == std::string::npos)
    return StartProgram("\"" + JoinPath(sFolder, sInstaller) + "\"");
  return ShowFailure({"start the program", sInstaller,
                      "the folder " + sFolder +
                          " on the command line holds quotation marks; please start Trelin again "
                          "without them, also where the name has spaces"});
}

}  // namespace

void frmMainMenu::cmdSetup_Click() { RunSetup(objSetupList->CurrentIndex()); }

void frmMainMenu::RunSetup(std::int16_t nIndex) {
  const auto objItem = objSetupList->MenuItems().Item(nIndex);
  if (!ConfirmSetup(*objItem)) return;
  if (!objItem->CheckDependencies()) {
    TheSystem().ShowMessage(objSetupList->LastError(), MessageIcon::Information, MessageButtons::Ok,
                            LoadResourceString(TextNumber::UnmetTitle));
    return;
  }
  if (StartInstaller(sSourceFolder_, objItem->InstallFile())) Timer1.SetEnabled(true);
}

// Whether the product has an installer and the user wants it even over a
// newer revision.
bool frmMainMenu::ConfirmSetup(MenuItem& objItem) {
  if (objItem.InstallFile().empty()) {
    TheSystem().ShowMessage(LoadResourceString(TextNumber::NoInstaller), MessageIcon::Critical,
                            MessageButtons::Ok, LoadResourceString(TextNumber::MenuCaption));
    return false;
  }
  return !objItem.NewerVersion() ||
         TheSystem().ShowMessage(LoadResourceString(TextNumber::InstallOverNewer),
                                 MessageIcon::Exclamation, MessageButtons::YesNo,
                                 LoadResourceString(TextNumber::MenuCaption)) == MessageAnswer::Yes;
}

void frmMainMenu::cmdReadMe_Click() {
  StartProgram(JoinPath(TheSystem().ProgramFolder(), objSetupList->ActiveItem()->ReadMeFile()));
}

void frmMainMenu::cmdExit_Click() { Unload(); }

}  // namespace trelin
