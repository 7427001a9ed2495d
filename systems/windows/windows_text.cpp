#include "systems/windows/windows_text.h"

namespace trelin {

std::wstring ToWide(const std::string& sText, UINT codePage) {
  const auto nLength = static_cast<int>(sText.size());
  std::wstring sWide(sText.size(), L'\0');  // no character is shorter in bytes
  const int nWide = MultiByteToWideChar(codePage, 0, sText.data(), nLength, sWide.data(), nLength);
  sWide.resize(static_cast<std::size_t>(nWide));
  return sWide;
}

std::string FromWide(const std::wstring& sWide, UINT codePage) {
  const auto nLength = static_cast<int>(sWide.size());
  const int nSize =
      WideCharToMultiByte(codePage, 0, sWide.data(), nLength, nullptr, 0, nullptr, nullptr);
  std::string sText(static_cast<std::size_t>(nSize), '\0');
  WideCharToMultiByte(codePage, 0, sWide.data(), nLength, sText.data(), nSize, nullptr, nullptr);
  return sText;
}

}  // namespace trelin
