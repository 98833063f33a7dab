// Owners for what GDI hands out, and the format in which it takes pixels.
#pragma once

#include "platform/unique_handle.h"
#include "platform/winapi.h"

namespace tidemark {

// Fonts, bitmaps, brushes, pens.
template <class ObjectHandle>
struct GdiObjectPolicy {
  using Handle = ObjectHandle;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { DeleteObject(handle); }
};
using UniqueFont = UniqueHandle<GdiObjectPolicy<HFONT>>;
using UniqueBitmap = UniqueHandle<GdiObjectPolicy<HBITMAP>>;

// A context made by CreateCompatibleDC.
struct MemoryContextPolicy {
  using Handle = HDC;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { DeleteDC(handle); }
};
using UniqueMemoryContext = UniqueHandle<MemoryContextPolicy>;

// A canvas's pixels: 32 bits each, the top row first.
inline BITMAPINFO CanvasFormat(int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

// Selects an object into a context, and the former one again at the end.
class Selection {
 public:
  Selection(HDC context, HGDIOBJ object)
      : context_(context), former_(SelectObject(context, object)) {}
  ~Selection() { SelectObject(context_, former_); }
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;

 private:
  HDC context_;
  HGDIOBJ former_;
};

}  // namespace tidemark
