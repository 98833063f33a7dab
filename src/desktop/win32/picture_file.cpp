#include "desktop/win32/picture_file.h"

#include "platform/windows/wide_text.h"
// It wants the platform's headers before it.
#include <gdiplus.h>

namespace tidemark {
namespace {

namespace gdi = Gdiplus::DllExports;
using Gdiplus::GpBitmap;
using Gdiplus::GpGraphics;
using Gdiplus::GpImageAttributes;

class GdiplusSession {
 public:
  GdiplusSession() {
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token_, &input, nullptr) != Gdiplus::Ok) token_ = 0;
  }
  ~GdiplusSession() {
    if (token_ != 0) Gdiplus::GdiplusShutdown(token_);
  }
  GdiplusSession(const GdiplusSession&) = delete;
  GdiplusSession& operator=(const GdiplusSession&) = delete;

 private:
  ULONG_PTR token_ = 0;
};

// From the first picture to the end of the process.
void NeedGdiplus() { static const GdiplusSession session; }

struct BitmapPolicy {
  using Handle = GpBitmap*;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { gdi::GdipDisposeImage(handle); }
};
struct GraphicsPolicy {
  using Handle = GpGraphics*;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { gdi::GdipDeleteGraphics(handle); }
};
struct AttributesPolicy {
  using Handle = GpImageAttributes*;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { gdi::GdipDisposeImageAttributes(handle); }
};
using UniqueGpBitmap = UniqueHandle<BitmapPolicy>;
using UniqueGpGraphics = UniqueHandle<GraphicsPolicy>;
using UniqueGpAttributes = UniqueHandle<AttributesPolicy>;

UniqueGpBitmap BlankBitmap(int width, int height) {
  GpBitmap* bitmap = nullptr;
  gdi::GdipCreateBitmapFromScan0(width, height, 0, PixelFormat32bppRGB, nullptr, &bitmap);
  return UniqueGpBitmap(bitmap);
}

// A picture's edge is mixed with its mirror image, not with black.
UniqueGpAttributes MirroredEdges() {
  GpImageAttributes* attributes = nullptr;
  gdi::GdipCreateImageAttributes(&attributes);
  gdi::GdipSetImageAttributesWrapMode(attributes, Gdiplus::WrapModeTileFlipXY, 0, FALSE);
  return UniqueGpAttributes(attributes);
}

SIZE SizeOf(GpBitmap* bitmap) {
  UINT width = 0;
  UINT height = 0;
  gdi::GdipGetImageWidth(bitmap, &width);
  gdi::GdipGetImageHeight(bitmap, &height);
  return {static_cast<LONG>(width), static_cast<LONG>(height)};
}

UniqueGpBitmap InSize(GpBitmap* source, int width, int height) {
  UniqueGpBitmap target = BlankBitmap(width, height);
  GpGraphics* graphics_handle = nullptr;
  gdi::GdipGetImageGraphicsContext(target.Get(), &graphics_handle);
  const UniqueGpGraphics graphics(graphics_handle);
  if (!graphics) return {};
  gdi::GdipSetInterpolationMode(graphics.Get(), Gdiplus::InterpolationModeHighQualityBicubic);
  gdi::GdipSetPixelOffsetMode(graphics.Get(), Gdiplus::PixelOffsetModeHalf);
  const SIZE size = SizeOf(source);
  const Gdiplus::GpStatus status = gdi::GdipDrawImageRectRectI(
      graphics.Get(), source, 0, 0, width, height, 0, 0, size.cx, size.cy, Gdiplus::UnitPixel,
      MirroredEdges().Get(), nullptr, nullptr);
  return status == Gdiplus::Ok ? std::move(target) : UniqueGpBitmap();
}

}  // namespace

struct PictureFile::Image {
  UniqueGpBitmap bitmap;
};

PictureFile::PictureFile(const std::string& path) : image_(std::make_unique<Image>()) {
  NeedGdiplus();
  GpBitmap* bitmap = nullptr;
  gdi::GdipCreateBitmapFromFile(Wide(path).c_str(), &bitmap);
  image_->bitmap.Reset(bitmap);
}

PictureFile::~PictureFile() = default;

SIZE PictureFile::Size() const { return image_->bitmap ? SizeOf(image_->bitmap.Get()) : SIZE{}; }

UniqueBitmap PictureFile::Scaled(int width, int height) const {
  if (!image_->bitmap || width <= 0 || height <= 0) return {};
  GpBitmap* source = image_->bitmap.Get();
  // Reduced by more than a half, smooth scaling would skip pixels: it goes down in halves.
  UniqueGpBitmap halved;
  for (SIZE size = SizeOf(source); size.cx >= 2 * width && size.cy >= 2 * height && size.cx > 2 &&
                                   (size.cx > 2 * width || size.cy > 2 * height);
       size = SizeOf(source)) {
    halved = InSize(source, (size.cx + 1) / 2, (size.cy + 1) / 2);
    if (!halved) return {};
    source = halved.Get();
  }
  const UniqueGpBitmap scaled = InSize(source, width, height);
  HBITMAP bitmap = nullptr;
  if (scaled) gdi::GdipCreateHBITMAPFromBitmap(scaled.Get(), &bitmap, 0xFF000000);
  return UniqueBitmap(bitmap);
}

}  // namespace tidemark
