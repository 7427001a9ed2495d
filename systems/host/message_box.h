#pragma once

#include <string>

#include "seam/system.h"

namespace trelin {

// System::ShowMessage: a message box owned by the window that is shown.
MessageAnswer ShowMessageBox(const std::string& sText, MessageIcon icon, MessageButtons buttons,
                             const std::string& sTitle);

}  // namespace trelin
