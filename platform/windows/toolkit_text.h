#pragma once

#include <windows.h>

#include <string>

namespace trelin {

void SetWindowCaption(HWND hWindow, const std::string& sText);
std::string WindowCaption(HWND hWindow);

}  // namespace trelin
