#include "systems/windows/library_loading.h"

#include <array>
#include <string>

namespace trelin {

namespace {

// A Windows 7 without its updates lacks the function.
using SetDefaultFolders = BOOL(WINAPI*)(DWORD);

SetDefaultFolders FindSetDefaultFolders() {
  const HMODULE hKernel = GetModuleHandleA("kernel32.dll");
  // In two steps: the compiler warns of a cast to a function with other arguments.
  const auto pFunction =
      reinterpret_cast<void (*)()>(GetProcAddress(hKernel, "SetDefaultDllDirectories"));
  return reinterpret_cast<SetDefaultFolders>(pFunction);
}

// What Windows' own libraries ask for by name when they are first needed.
constexpr std::array SystemLibraries = {"cryptbase", "dwmapi",  "msimg32",      "propsys",
                                        "uxtheme",   "version", "windowscodecs"};

}  // namespace

HMODULE LoadFromSystemFolder(const char* pName) {
  std::array<char, MAX_PATH> folder{};
  GetSystemDirectoryA(folder.data(), folder.size());
  return LoadLibraryExA((std::string(folder.data()) + "\\" + pName + ".dll").c_str(), nullptr,
                        LOAD_WITH_ALTERED_SEARCH_PATH);
}

// Started programs inherit what the second function sets: it is for the systems
// that need it.
void RestrictLibraryLoading() {
  if (const SetDefaultFolders pSet = FindSetDefaultFolders())
    pSet(LOAD_LIBRARY_SEARCH_SYSTEM32);
  else
    SetDllDirectoryA("");  // not from the current folder
  // A name that is loaded already is not looked for again.
  for (const char* pName : SystemLibraries) LoadFromSystemFolder(pName);
}

}  // namespace trelin
