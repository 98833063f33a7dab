#include "platform/character_width.h"

#include <clocale>
#include <cwchar>

namespace tidemark {
namespace {

// The program's texts are UTF-8, whatever the locale of who started it.
int SystemsWidth(char32_t character) {
  static const locale_t kUtf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  if (kUtf8 == nullptr) return 1;
  const locale_t former = uselocale(kUtf8);
  const int width = wcwidth(static_cast<wchar_t>(character));
  uselocale(former);
  return width;
}

}  // namespace

int CharacterWidth(char32_t character) {
  if (character < 0x300) return 1;
  const int width = SystemsWidth(character);
  return width < 0 ? 1 : width;
}

}  // namespace tidemark
