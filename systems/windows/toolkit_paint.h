#pragma once

#include <windows.h>

#include "systems/windows/handle.h"

namespace trelin {

// Answers a WM_PAINT. What is drawn comes onto the screen at once, at the end.
class PaintBuffer {
 public:
  explicit PaintBuffer(HWND hWindow);
  ~PaintBuffer();
  PaintBuffer(const PaintBuffer&) = delete;
  PaintBuffer& operator=(const PaintBuffer&) = delete;

  HDC Context() const { return context_.get(); }
  const RECT& Inside() const { return inside_; }  // the window's client area

 private:
  HWND hWindow_;
  PAINTSTRUCT paint_{};
  RECT inside_{};
  ObjectOwner<HBITMAP> bitmap_;
  MemoryContextOwner context_;  // destroyed first, as it holds the bitmap
};

void Fill(HDC hContext, const RECT& rect, COLORREF color);

}  // namespace trelin
