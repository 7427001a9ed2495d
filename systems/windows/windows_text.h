#pragma once

#include <windows.h>

#include <string>

namespace trelin {

// Texts in a code page, which is the system's ANSI one or CP_UTF8, and in the
// system's wide characters (UTF-16). A character that the code page lacks becomes a
// similar one or "?".
std::wstring ToWide(const std::string& sText, UINT codePage = CP_ACP);
std::string FromWide(const std::wstring& sWide, UINT codePage = CP_ACP);

}  // namespace trelin
