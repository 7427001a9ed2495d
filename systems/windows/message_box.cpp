#include "systems/windows/message_box.h"

#include <windows.h>

#include "systems/windows/toolkit_loop.h"

namespace trelin {

MessageAnswer ShowMessageBox(const std::string& sText, MessageIcon icon, MessageButtons buttons,
                             const std::string& sTitle) {
  const WindowLoop* const pLoop = WindowLoop::Innermost();
  const bool bAsks = buttons == MessageButtons::YesNo;
  const MessageAnswer closed = bAsks ? MessageAnswer::No : MessageAnswer::Ok;
  if (pLoop != nullptr && pLoop->Failed()) return closed;

  ReleaseCapture();  // from a control that has captured the pointer
  const HWND hOwner = pLoop != nullptr ? pLoop->Window() : nullptr;
  const UINT style = static_cast<UINT>(icon) | static_cast<UINT>(buttons) |
                     (hOwner == nullptr ? MB_SETFOREGROUND : 0U);
  const int nAnswer =
      MessageBoxA(hOwner, sText.c_str(), sTitle.empty() ? "Trelin" : sTitle.c_str(), style);
  const bool bFailed = pLoop != nullptr && pLoop->Failed();
  return nAnswer == IDYES && !bFailed ? MessageAnswer::Yes : closed;
}

}  // namespace trelin
