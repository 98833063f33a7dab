#include "desktop/win32/resources.h"

#include <map>
#include <tuple>
#include <utility>

#include "desktop/win32/colors.h"
#include "desktop/win32/gdi_objects.h"
#include "desktop/win32/picture_file.h"
#include "platform/unique_handle.h"
#include "platform/winapi.h"
// It wants the platform's headers before it.
#include <commctrl.h>

namespace tidemark {
namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kTenthsOfPointsPerInch = 720;
constexpr int kUsualDotsPerInch = 96;
constexpr int kIconSize = 16;

struct ImageListPolicy {
  using Handle = HIMAGELIST;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { ImageList_Destroy(handle); }
};
using UniqueImageList = UniqueHandle<ImageListPolicy>;

int CALLBACK TakeFace(const LOGFONTA* /*face*/, const TEXTMETRICA* /*metric*/, DWORD /*type*/,
                      LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;  // NOLINT(performance-no-int-to-ptr)
  return 0;
}

bool HasFace(const char* face) {
  LOGFONTA wanted{};
  wanted.lfCharSet = DEFAULT_CHARSET;
  lstrcpynA(wanted.lfFaceName, face, LF_FACESIZE);
  bool found = false;
  const HDC screen = GetDC(nullptr);
  EnumFontFamiliesExA(screen, &wanted, TakeFace, reinterpret_cast<LPARAM>(&found), 0);
  ReleaseDC(nullptr, screen);
  return found;
}

// Tahoma; where it is lacking, the face of the system's own messages.
std::string FaceName() {
  constexpr const char* kFace = "Tahoma";
  NONCLIENTMETRICSA metrics{};
  metrics.cbSize = sizeof(metrics);
  if (HasFace(kFace) ||
      SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0) == FALSE) {
    return kFace;
  }
  return metrics.lfMessageFont.lfFaceName;
}

UniqueFont MakeFont(const Font& font, int dots_per_inch) {
  static const std::string face = FaceName();
  const int height = -MulDiv(font.tenths_of_points, dots_per_inch, kTenthsOfPointsPerInch);
  return UniqueFont(CreateFontA(height, 0, 0, 0, font.bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE,
                                FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                CLEARTYPE_QUALITY, VARIABLE_PITCH | FF_SWISS, face.c_str()));
}

UniqueImageList MakeIcons(const std::string& folder, const std::vector<std::string>& files,
                          int size) {
  const int count = static_cast<int>(files.size());
  UniqueImageList icons(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, count, 1));
  ImageList_SetImageCount(icons.Get(), static_cast<UINT>(count));
  for (int index = 0; index < count; ++index) {
    const std::string file = folder + files[static_cast<std::size_t>(index)];
    const auto icon = static_cast<HICON>(
        LoadImageA(nullptr, file.c_str(), IMAGE_ICON, size, size, LR_LOADFROMFILE));
    if (icon == nullptr) continue;
    ImageList_ReplaceIcon(icons.Get(), index, icon);
    DestroyIcon(icon);
  }
  return icons;
}

}  // namespace

struct Resources::Made {
  std::map<std::pair<int, bool>, UniqueFont> fonts;
  std::map<std::tuple<std::string, int, int>, UniqueBitmap> pictures;
  std::map<std::vector<std::string>, UniqueImageList> icons;
};

Resources::Resources(std::string program_folder)
    : program_folder_(std::move(program_folder)), made_(std::make_unique<Made>()) {}
Resources::~Resources() = default;

void Resources::SetDotsPerInch(int dots_per_inch) {
  dots_per_inch_ = dots_per_inch;
  made_ = std::make_unique<Made>();
}

int Resources::Pixels(int twips) const { return MulDiv(twips, dots_per_inch_, kTwipsPerInch); }

RECT Resources::PixelsOf(const Bounds& bounds) const {
  return {Pixels(bounds.left), Pixels(bounds.top), Pixels(bounds.left + bounds.width),
          Pixels(bounds.top + bounds.height)};
}

int Resources::Scaled(int pixels_at_96) const {
  return MulDiv(pixels_at_96, dots_per_inch_, kUsualDotsPerInch);
}

HFONT Resources::FontOf(const Font& font) {
  UniqueFont& made = made_->fonts[{font.tenths_of_points, font.bold}];
  if (!made) made = MakeFont(font, dots_per_inch_);
  return made.Get();
}

HBITMAP Resources::PictureOf(const std::string& file, int width, int height) {
  if (file.empty() || SystemColorsOnly()) return nullptr;
  UniqueBitmap& made = made_->pictures[{file, width, height}];
  if (!made) made = PictureFile(file).Scaled(width, height);
  return made.Get();
}

SIZE Resources::PictureSizeOf(const std::string& file) { return PictureFile(file).Size(); }

HIMAGELIST Resources::IconsOf(const std::vector<std::string>& files) {
  UniqueImageList& made = made_->icons[files];
  if (!made) made = MakeIcons(program_folder_, files, Scaled(kIconSize));
  return made.Get();
}

}  // namespace tidemark
