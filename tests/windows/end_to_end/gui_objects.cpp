#include "tests/windows/end_to_end/gui_objects.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace end_to_end {

namespace {

bool UnderWine() {
  return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

template <class Type>
std::vector<Type> Read(HANDLE hProcess, std::uintptr_t nAddress, std::size_t nCount) {
  std::vector<Type> values(nCount);
  if (!ReadProcessMemory(hProcess, reinterpret_cast<void*>(nAddress), values.data(),
                         nCount * sizeof(Type), nullptr))
    throw std::runtime_error("The launcher's memory cannot be read.");
  return values;
}

// The 64-bit one. That of a 32-bit process, which this function knows, lies a
// page behind.
std::uintptr_t AddressOfProcessBlock(HANDLE hProcess) {
  using Query = LONG(WINAPI*)(HANDLE, int, void*, ULONG, ULONG*);
  const auto query = reinterpret_cast<Query>(reinterpret_cast<void (*)()>(
      GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQueryInformationProcess")));
  std::array<std::uintptr_t, 6> numbers{};
  query(hProcess, 0, numbers.data(), sizeof numbers, nullptr);
  return numbers[1] - (sizeof(void*) == 8 ? 0 : 0x1000);
}

// A place in the process's table of GDI handles. Type is 0 while it is free.
struct GdiEntry {
  std::uint64_t nObject;
  std::uint16_t nProcess, nCount, nUnique;
  std::uint8_t nType, nFlags;
  std::uint64_t nUser;
};

// Wine answers GetGuiResources with 0. The process block holds the address of
// the table, whose 16384 places are all the process's own.
int CountGdiEntries(HANDLE hProcess) {
  constexpr std::size_t AddressOfTable = 0xF8;
  const std::uintptr_t nBlock = AddressOfProcessBlock(hProcess);
  const auto nTable = Read<std::uint64_t>(hProcess, nBlock + AddressOfTable, 1).front();
  const auto entries = Read<GdiEntry>(hProcess, static_cast<std::uintptr_t>(nTable), 16384);
  return static_cast<int>(std::count_if(entries.begin(), entries.end(),
                                        [](const GdiEntry& entry) { return entry.nType != 0; }));
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

}  // namespace

std::ostream& operator<<(std::ostream& out, const GuiObjects& objects) {
  return out << objects.nUser << " USER and " << objects.nGdi << " GDI objects";
}

GuiObjects CountGuiObjects(HANDLE hProcess) {
  if (UnderWine()) return {CountSessionUserObjects(), CountGdiEntries(hProcess)};
  return {static_cast<int>(GetGuiResources(hProcess, GR_USEROBJECTS)),
          static_cast<int>(GetGuiResources(hProcess, GR_GDIOBJECTS))};
}

}  // namespace end_to_end
