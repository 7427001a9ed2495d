#pragma once

#include <windows.h>

#include <ostream>

namespace end_to_end {

// The objects that programs leak when they forget to give them back.
struct GuiObjects {
  // Windows, menus, icons, cursors, hooks. Under Wine, those of all programs of
  // the session together.
  int nUser;
  // Fonts, brushes, pens, bitmaps, regions, device contexts: of the process.
  int nGdi;

  bool operator==(const GuiObjects&) const = default;
};
std::ostream& operator<<(std::ostream& out, const GuiObjects& objects);

GuiObjects CountGuiObjects(HANDLE hProcess);

}  // namespace end_to_end
