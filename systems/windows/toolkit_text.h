#pragma once

#include <windows.h>

#include <string>

namespace trelin {

void SetWindowCaption(HWND hWindow, const std::string& sText);
std::string WindowCaption(HWND hWindow);

std::u16string ToUtf16(const std::string& sText);  // from the ANSI code page

}  // namespace trelin
