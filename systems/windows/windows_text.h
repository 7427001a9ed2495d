#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// Texts in a code page, which is the system's ANSI one or CP_UTF8, and in the
// system's wide characters (UTF-16).
namespace trelin {

// Wide: std::wstring or std::u16string.
template <class Wide = std::wstring>
Wide ToWide(const std::string& sText, UINT codePage = CP_ACP) {
  const auto nBytes = static_cast<int>(sText.size());
  Wide sWide(sText.size(), 0);  // no character is shorter in bytes
  const int nLength = MultiByteToWideChar(codePage, 0, sText.data(), nBytes,
                                          reinterpret_cast<wchar_t*>(sWide.data()), nBytes);
  sWide.resize(static_cast<std::size_t>(nLength));
  return sWide;
}

// A character that the code page lacks becomes a similar one or "?".
inline std::string FromWide(std::wstring_view sWide, UINT codePage = CP_ACP) {
  const auto nLength = static_cast<int>(sWide.size());
  const int nSize =
      WideCharToMultiByte(codePage, 0, sWide.data(), nLength, nullptr, 0, nullptr, nullptr);
  std::string sText(static_cast<std::size_t>(nSize), '\0');
  WideCharToMultiByte(codePage, 0, sWide.data(), nLength, sText.data(), nSize, nullptr, nullptr);
  return sText;
}

}  // namespace trelin
