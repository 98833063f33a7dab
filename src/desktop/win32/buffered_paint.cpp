#include "desktop/win32/buffered_paint.h"

#include <algorithm>

namespace tidemark {

BufferedPaint::BufferedPaint(HWND window) : window_(window) {
  BeginPaint(window_, &paint_);
  GetClientRect(window_, &area_);
  memory_.Reset(CreateCompatibleDC(paint_.hdc));
  bitmap_.Reset(
      CreateCompatibleBitmap(paint_.hdc, std::max(area_.right, 1L), std::max(area_.bottom, 1L)));
  former_ = SelectObject(memory_.Get(), bitmap_.Get());
}

BufferedPaint::~BufferedPaint() {
  BitBlt(paint_.hdc, 0, 0, area_.right, area_.bottom, memory_.Get(), 0, 0, SRCCOPY);
  SelectObject(memory_.Get(), former_);
  EndPaint(window_, &paint_);
}

void PaintBitmap(HDC context, const RECT& area, HBITMAP bitmap) {
  if (bitmap == nullptr) return;
  const UniqueMemoryContext source(CreateCompatibleDC(context));
  const Selection selection(source.Get(), bitmap);
  BitBlt(context, area.left, area.top, area.right - area.left, area.bottom - area.top, source.Get(),
         0, 0, SRCCOPY);
}

}  // namespace tidemark
