#include "platform/windows/toolkit_tooltip.h"

#include <windows.h>
#include <commctrl.h>

namespace trelin {

namespace {

constexpr int LongestShownMilliseconds = 30000;

TTTOOLINFOA Tool(HWND hWindow) {
  TTTOOLINFOA tool{};
  tool.cbSize = TTTOOLINFOA_V1_SIZE;
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = hWindow;
  tool.uId = reinterpret_cast<UINT_PTR>(hWindow);
  return tool;
}

}  // namespace

// It gets the window's width, so that its text wraps as the window's does.
Tooltip::Tooltip(HWND hWindow)
    : hWindow_(hWindow),
      tooltip_(CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                               WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, hWindow,
                               nullptr, GetModuleHandleA(nullptr), nullptr)) {
  TTTOOLINFOA tool = Tool(hWindow);
  char sNone[] = "";
  tool.lpszText = sNone;
  RECT inside{};
  GetClientRect(hWindow, &inside);
  const HWND hTooltip = tooltip_.get();
  SendMessageA(hTooltip, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageA(hTooltip, TTM_SETMAXTIPWIDTH, 0, inside.right);
  SendMessageA(hTooltip, TTM_SETDELAYTIME, TTDT_AUTOPOP, LongestShownMilliseconds);
}

void Tooltip::SetText(const std::string& sText) {
  TTTOOLINFOA tool = Tool(hWindow_);
  std::string sOwn = sText;
  tool.lpszText = sOwn.data();
  SendMessageA(tooltip_.get(), TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
}

void Tooltip::Relay(UINT message, WPARAM wParam, LPARAM lParam) const {
  MSG relayed{};
  relayed.hwnd = hWindow_;
  relayed.message = message;
  relayed.wParam = wParam;
  relayed.lParam = lParam;
  SendMessageA(tooltip_.get(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

}  // namespace trelin
