#pragma once

#include <memory>
#include <string>

#include "app/agreement.h"
#include "app/main_menu.h"

// The program's life:
//
//   Main -> StartUp     string library, notice lines, the agreement's window
//        -> agreement   declined: the program ends
//        -> menu        its window is made; Initialize loads the setup list; shown until closed
//        -> CleanUp
namespace trelin {

// The folder that installers are started from: the command-line text as it
// is, or the program's folder when that is empty.
const std::string& SourceFolder();

// The window objects, from StartUp on. The menu's is made when it is first asked for, so
// that the agreement, which comes before it, does not wait for its thirty controls.
frmMainMenu& MainMenu();
frmMicrosoft& Agreement();

// True when the program may go on. A failure has then been shown and cleaned
// up after.
bool StartUp();

// Unloads and releases the main menu window if there is one. Never throws.
void CleanUp() noexcept;

// Releases the agreement window as well, as the last step of the program.
void ReleaseAgreement() noexcept;

}  // namespace trelin
