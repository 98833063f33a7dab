// A painting of a whole window without flicker: it is made in memory and copied in one step.
#pragma once

#include "desktop/win32/gdi_objects.h"
#include "platform/winapi.h"

namespace tidemark {

// For WM_PAINT: Context() is painted on, the destructor shows it.
class BufferedPaint {
 public:
  explicit BufferedPaint(HWND window);
  ~BufferedPaint();
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;

  HDC Context() const { return memory_.Get(); }
  const RECT& Area() const { return area_; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  RECT area_{};
  UniqueMemoryContext memory_;
  UniqueBitmap bitmap_;
  HGDIOBJ former_ = nullptr;
};

// Copies a bitmap, its left top corner into that of the area; nothing for a null one.
void PaintBitmap(HDC context, const RECT& area, HBITMAP bitmap);

}  // namespace tidemark
