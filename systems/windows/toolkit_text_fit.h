#pragma once

#include <windows.h>

#include <string>

#include "shared/label_lines.h"

namespace trelin {

// The lines of a text in the ANSI code page that have room in a size in
// pixels, in the context's font.
LabelLines LinesIn(const std::string& sText, HDC hContext, SIZE size);

int LineHeight(HDC hContext);  // pixels

inline const wchar_t* Wide(const std::u16string& sText) {
  return reinterpret_cast<const wchar_t*>(sText.c_str());
}

}  // namespace trelin
