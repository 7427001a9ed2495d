#pragma once

#include <windows.h>

namespace trelin {

// From now on the system takes the libraries that it or the program asks for
// by name from its own folder alone: one that somebody has put beside the
// program or into the current folder does not run with the program's rights.
void RestrictLibraryLoading();

// The library of the system's own folder by its name without ".dll"; null when
// there is none. It stays loaded.
HMODULE LoadFromSystemFolder(const char* pName);

}  // namespace trelin
