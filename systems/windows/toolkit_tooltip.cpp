#include "systems/windows/toolkit_tooltip.h"

#include <windows.h>
#include <commctrl.h>

#include "shared/tooltip_text.h"
#include "systems/windows/toolkit_text_fit.h"

namespace trelin {

namespace {

constexpr int LongestShownMilliseconds = 30000;

// Of a text with more characters the system would cut the end off.
constexpr std::size_t LongestTooltip = INFOTIPSIZE - 1;

TTTOOLINFOW Tool(HWND hWindow) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = hWindow;
  tool.uId = reinterpret_cast<UINT_PTR>(hWindow);
  return tool;
}

}  // namespace

Tooltip::Tooltip(HWND hWindow)
    : hWindow_(hWindow),
      tooltip_(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                               WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, hWindow,
                               nullptr, GetModuleHandleW(nullptr), nullptr)) {
  TTTOOLINFOW tool = Tool(hWindow);
  wchar_t sNone[] = L"";
  tool.lpszText = sNone;
  RECT inside{};
  GetClientRect(hWindow, &inside);
  const HWND hTooltip = tooltip_.get();
  SendMessageA(hTooltip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageA(hTooltip, TTM_SETMAXTIPWIDTH, 0, inside.right);
  SendMessageA(hTooltip, TTM_SETDELAYTIME, TTDT_AUTOPOP, LongestShownMilliseconds);
}

void Tooltip::SetText(const std::string& sText) {
  std::u16string sShown = TooltipText(GetSystemMetrics(SM_CYSCREEN), LongestTooltip,
                                      [&](int nHeight) { return Lines(sText, nHeight); });
  TTTOOLINFOW tool = Tool(hWindow_);
  tool.lpszText = reinterpret_cast<wchar_t*>(sShown.data());
  SendMessageA(tooltip_.get(), TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

LabelLines Tooltip::Lines(const std::string& sText, int nHeight) const {
  const MemoryContextOwner context(CreateCompatibleDC(nullptr));
  SelectObject(context.get(),
               reinterpret_cast<HFONT>(SendMessageA(tooltip_.get(), WM_GETFONT, 0, 0)));
  RECT inside{};
  GetClientRect(hWindow_, &inside);
  return LinesIn(sText, context.get(), {inside.right, nHeight});
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
