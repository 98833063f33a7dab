#include "desktop/win32/colors.h"

namespace tidemark {
namespace {

constexpr unsigned kSystemColor = 0x80000000;
constexpr unsigned kWhite = 0xFFFFFF;
constexpr COLORREF kHairline = RGB(0xC4, 0xCC, 0xD6);

int Brightness(COLORREF color) {
  return GetRValue(color) * 3 + GetGValue(color) * 6 + GetBValue(color);
}

bool HighContrast() {
  HIGHCONTRASTA contrast{};
  contrast.cbSize = sizeof(contrast);
  return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) != FALSE &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace

bool SystemColorsOnly() {
  return HighContrast() ||
         Brightness(GetSysColor(COLOR_WINDOWTEXT)) > Brightness(GetSysColor(COLOR_WINDOW));
}

COLORREF PanelColor() { return SystemColorsOnly() ? GetSysColor(COLOR_WINDOW) : kWhite; }

COLORREF PanelTextColor() { return SystemColorsOnly() ? GetSysColor(COLOR_WINDOWTEXT) : 0; }

COLORREF BorderColor() { return SystemColorsOnly() ? GetSysColor(COLOR_WINDOWFRAME) : kHairline; }

COLORREF ColorOf(unsigned color) {
  if ((color & kSystemColor) != 0) return GetSysColor(static_cast<int>(color & 0xFF));
  if (color == kWhite) return PanelColor();
  if (color == 0 || SystemColorsOnly()) return PanelTextColor();
  return color;
}

void FillWith(HDC context, const RECT& area, COLORREF color) {
  SetDCBrushColor(context, color);
  FillRect(context, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace tidemark
