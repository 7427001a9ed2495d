// What the menu takes of the system for a select, a scroll or a pressed icon,
// it gives back.

#include <windows.h>
#include <winternl.h>

#include <cstdint>
#include <stdexcept>

#include "systems/windows/toolkit_native.h"
#include "tests/app/program_window.h"

namespace trelin {
namespace {

// The objects that programs leak when they forget to give them back.
struct GuiObjects {
  // Windows, menus, icons, cursors, hooks. Under Wine, those of all programs of
  // the session together.
  int nUser;
  // Fonts, brushes, pens, bitmaps, regions, device contexts.
  int nGdi;
};

// Wine answers GetGuiResources with 0. The process block holds the address of the
// table of handles, all of whose places are the process's own; an object's type is 0
// while its place is free. The block is that of 64 bits; that of a 32-bit process
// lies a page behind.
int CountGdiEntries() {
  constexpr std::size_t AddressOfTable = 0xF8, Places = 16384, PlaceSize = 24, Type = 14;
  const auto nBlock = reinterpret_cast<std::uintptr_t>(NtCurrentTeb()->ProcessEnvironmentBlock) -
                      (sizeof(void*) == 8 ? 0 : 0x1000);
  const auto nTable = *reinterpret_cast<const std::uint64_t*>(nBlock + AddressOfTable);
  const auto* table = reinterpret_cast<const std::uint8_t*>(static_cast<std::uintptr_t>(nTable));
  int nCount = 0;
  for (std::size_t n = 0; n < Places; ++n) nCount += table[n * PlaceSize + Type] == 0 ? 0 : 1;
  return nCount;
}

// In Wine's handle of a user object, the low word is 0x20 and twice the place
// in the session's table, and the high word is how often the place was used. A
// place is taken for the first time only when there is no free one before it:
// then the table is full up to there.
int CountSessionUserObjects() {
  std::vector<HMENU> menus;
  do {
    menus.push_back(CreateMenu());
    if (menus.back() == nullptr) throw std::runtime_error("No menu can be created.");
  } while (HIWORD(reinterpret_cast<std::uintptr_t>(menus.back())) != 1);
  const int nLast = (LOWORD(reinterpret_cast<std::uintptr_t>(menus.back())) - 0x20) / 2;
  for (HMENU hMenu : menus) DestroyMenu(hMenu);
  return nLast + 1 - static_cast<int>(menus.size());
}

// When everything is painted.
GuiObjects CountGuiObjects() {
  Driver::Wait(0);
  if (GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr)
    return {CountSessionUserObjects(), CountGdiEntries()};
  return {static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)),
          static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))};
}

using MenuLeaks = ProgramWindowTest;

void Tell(const Control& control, UINT message, WPARAM wParam, int nPlace) {
  SendMessageA(control.Get().Handle(), message, wParam, MAKELPARAM(nPlace, nPlace));
}

// Four selects, three scrolls and three icon presses. In every fifth round all
// is painted while the last icon is pressed.
void ActTenTimes(int nRound) {
  auto& menu = MainMenu();
  for (const Label& label : menu.lblStatus) Tell(label, WM_LBUTTONDOWN, MK_LBUTTON, 5);
  const int nNotch = nRound % 2 == 0 ? -WHEEL_DELTA : WHEEL_DELTA;
  for (int i = 0; i < 3; ++i) Tell(menu.picList, WM_MOUSEWHEEL, MAKEWPARAM(0, nNotch), 0);
  for (std::int16_t nRow = 1; nRow < 4; ++nRow) {
    Tell(menu.picIcon[nRow], WM_LBUTTONDOWN, MK_LBUTTON, 5);
    if (nRow == 3 && nRound % 5 == 0) Driver::Wait(0);
    Tell(menu.picIcon[nRow], WM_MOUSEMOVE, MK_LBUTTON, -20);
    Tell(menu.picIcon[nRow], WM_LBUTTONUP, 0, -20);
  }
}

// Not in one menu alone: what a menu takes goes with it.
TEST_F(MenuLeaks, TwoThousandActionsLeaveNothingBehind) {
  GuiObjects first{};
  for (int nMenu = 0; nMenu <= 4; ++nMenu) {
    UseMenu(7, [&](frmMainMenu&) {
      for (int nRound = 0; nRound < 50; ++nRound) ActTenTimes(nRound);
      const GuiObjects objects = CountGuiObjects();
      if (nMenu == 0) first = objects;
      EXPECT_LE(objects.nUser, first.nUser) << "menu " << nMenu;
      EXPECT_LE(objects.nGdi, first.nGdi) << "menu " << nMenu;
    });
  }
}

TEST_F(MenuLeaks, WhatIsKeptIsSeen) {
  UseMenu(7, [](frmMainMenu&) {
    const GuiObjects before = CountGuiObjects();
    const HGDIOBJ kept[] = {CreateFontA(20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "Arial"),
                            CreateSolidBrush(RGB(1, 2, 3)), CreateBitmap(8, 8, 1, 1, nullptr)};
    const HMENU hMenu = CreateMenu();
    const GuiObjects after = CountGuiObjects();
    EXPECT_EQ(after.nUser, before.nUser + 1);
    EXPECT_EQ(after.nGdi, before.nGdi + 3);
    DestroyMenu(hMenu);
    for (HGDIOBJ hObject : kept) DeleteObject(hObject);
  });
}

}  // namespace
}  // namespace trelin
