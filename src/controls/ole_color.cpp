#include "controls/ole_color.h"

#include <array>

namespace tidemark {
namespace {

// By the platform's COLOR_ numbers, as 0x00BBGGRR.
constexpr std::array<OleColor, 31> kSystemColors = {
    0xC8C8C8, 0x000000, 0xD1B499, 0xDBCDBF, 0xF0F0F0, 0xFFFFFF, 0x646464,  // scroll bar ... frame
    0x000000, 0x000000, 0x000000, 0xB4B4B4, 0xFCF7F4, 0xABABAB,  // texts, borders, work space
    0xD77800, 0xFFFFFF,                                          // highlight and its text
    0xF0F0F0, 0xA0A0A0, 0x6D6D6D, 0x000000, 0x000000, 0xFFFFFF,  // buttons
    0x696969, 0xE3E3E3, 0x000000, 0xE1FFFF, 0x000000,            // edges, tool tips, unused
    0xCC6600, 0xEAD1B9, 0xF2E4D7, 0xD77800, 0xF0F0F0,            // hot track, gradients, menus
};

}  // namespace

OleColor PlainColor(OleColor color) {
  if ((color & 0x80000000U) == 0) return color & 0xFFFFFFU;
  const OleColor number = color & 0xFFFFFFU;
  return number < kSystemColors.size() ? kSystemColors[number] : 0;
}

Pixel PixelOf(OleColor color) {
  const OleColor plain = PlainColor(color);
  return (plain & 0xFFU) << 16 | (plain & 0xFF00U) | plain >> 16;
}

}  // namespace tidemark
