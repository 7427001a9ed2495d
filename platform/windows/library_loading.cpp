#include "platform/windows/library_loading.h"

#include <windows.h>

namespace trelin {

namespace {

// A Windows 7 without its updates lacks the function.
using SetDefaultFolders = BOOL(WINAPI*)(DWORD);

SetDefaultFolders FindSetDefaultFolders() {
  const HMODULE hKernel = GetModuleHandleA("kernel32.dll");
  // By way of a pointer without arguments, as the system's type has none.
  const auto pFunction =
      reinterpret_cast<void (*)()>(GetProcAddress(hKernel, "SetDefaultDllDirectories"));
  return reinterpret_cast<SetDefaultFolders>(pFunction);
}

}  // namespace

void RestrictLibraryLoading() {
  SetDllDirectoryA("");  // not from the current folder, on every Windows
  if (const SetDefaultFolders pSet = FindSetDefaultFolders()) pSet(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

}  // namespace trelin
