#pragma once

#include <windows.h>

#include <memory>

// Owners of the system's handles: each is moved, never copied, closes what it
// holds, and is null when it holds nothing.
namespace trelin {

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using HandleOwner = std::unique_ptr<void, HandleCloser>;

struct SearchCloser {
  void operator()(HANDLE hSearch) const { FindClose(hSearch); }
};
using SearchOwner = std::unique_ptr<void, SearchCloser>;

struct WindowCloser {
  void operator()(HWND hWindow) const { DestroyWindow(hWindow); }
};
using WindowOwner = std::unique_ptr<HWND__, WindowCloser>;

struct IconCloser {
  void operator()(HICON hIcon) const { DestroyIcon(hIcon); }
};
using IconOwner = std::unique_ptr<HICON__, IconCloser>;

// Fonts, brushes and bitmaps.
struct ObjectCloser {
  void operator()(HGDIOBJ hObject) const { DeleteObject(hObject); }
};
template <class Handle>
using ObjectOwner = std::unique_ptr<std::remove_pointer_t<Handle>, ObjectCloser>;

struct MemoryContextCloser {
  void operator()(HDC hContext) const { DeleteDC(hContext); }
};
using MemoryContextOwner = std::unique_ptr<HDC__, MemoryContextCloser>;

// The system's functions that open files and searches have INVALID_HANDLE_VALUE for
// none.
inline HANDLE NullIfInvalid(HANDLE handle) {
  return handle == INVALID_HANDLE_VALUE ? nullptr : handle;
}

}  // namespace trelin
