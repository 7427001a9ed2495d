#include "systems/windows/toolkit_paint.h"

namespace trelin {

PaintBuffer::PaintBuffer(HWND hWindow) : hWindow_(hWindow) {
  const HDC hScreen = BeginPaint(hWindow, &paint_);
  GetClientRect(hWindow, &inside_);
  bitmap_.reset(CreateCompatibleBitmap(hScreen, inside_.right, inside_.bottom));
  context_.reset(CreateCompatibleDC(hScreen));
  SelectObject(context_.get(), bitmap_.get());
}

PaintBuffer::~PaintBuffer() {
  BitBlt(paint_.hdc, 0, 0, inside_.right, inside_.bottom, context_.get(), 0, 0, SRCCOPY);
  EndPaint(hWindow_, &paint_);
}

void Fill(HDC hContext, const RECT& rect, COLORREF color) {
  SetBkColor(hContext, color);
  ExtTextOutA(hContext, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
}

}  // namespace trelin
