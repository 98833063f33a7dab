#include "platform/character_width.h"

#include <algorithm>
#include <array>

namespace tidemark {
namespace {

struct CharacterRange {
  char32_t first;
  char32_t last;
};

constexpr std::array<CharacterRange, 5> kCombining = {
    {{0x0300, 0x036F}, {0x1AB0, 0x1AFF}, {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}}};
constexpr std::array<CharacterRange, 8> kWide = {{{0x1100, 0x115F},
                                                  {0x2E80, 0xA4CF},
                                                  {0xAC00, 0xD7A3},
                                                  {0xF900, 0xFAFF},
                                                  {0xFE30, 0xFE6F},
                                                  {0xFF00, 0xFF60},
                                                  {0x1F300, 0x1FAFF},
                                                  {0x20000, 0x3FFFD}}};

template <std::size_t kSize>
bool IsIn(const std::array<CharacterRange, kSize>& ranges, char32_t character) {
  return std::any_of(ranges.begin(), ranges.end(), [character](const CharacterRange& range) {
    return range.first <= character && character <= range.last;
  });
}

}  // namespace

int CharacterWidth(char32_t character) {
  if (character < 0x300) return 1;
  if (IsIn(kCombining, character)) return 0;
  return IsIn(kWide, character) ? 2 : 1;
}

}  // namespace tidemark
