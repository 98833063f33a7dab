// Owners for what GDI hands out.
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
