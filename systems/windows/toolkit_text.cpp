#include "systems/windows/toolkit_text.h"

namespace trelin {

void SetWindowCaption(HWND hWindow, const std::string& sText) {
  SetWindowTextA(hWindow, sText.c_str());
}

std::string WindowCaption(HWND hWindow) {
  std::string sText(static_cast<std::size_t>(GetWindowTextLengthA(hWindow)), '\0');
  GetWindowTextA(hWindow, sText.data(), static_cast<int>(sText.size() + 1));  // with its NUL
  return sText;
}

std::u16string ToUtf16(const std::string& sText) {
  const auto nBytes = static_cast<int>(sText.size());
  std::u16string sWide(sText.size(), u'\0');  // no character is shorter in bytes
  const int nLength = MultiByteToWideChar(CP_ACP, 0, sText.data(), nBytes,
                                          reinterpret_cast<wchar_t*>(sWide.data()), nBytes);
  sWide.resize(static_cast<std::size_t>(nLength));
  return sWide;
}

}  // namespace trelin
