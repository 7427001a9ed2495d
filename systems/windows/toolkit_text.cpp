#include "systems/windows/toolkit_text.h"

#include "systems/windows/windows_text.h"

namespace trelin {

void SetWindowCaption(HWND hWindow, const std::string& sText) {
  SetWindowTextA(hWindow, sText.c_str());
}

std::string WindowCaption(HWND hWindow) {
  std::string sText(static_cast<std::size_t>(GetWindowTextLengthA(hWindow)), '\0');
  GetWindowTextA(hWindow, sText.data(), static_cast<int>(sText.size() + 1));  // with its NUL
  return sText;
}

std::u16string ToUtf16(const std::string& sText) { return ToWide<std::u16string>(sText); }

}  // namespace trelin
