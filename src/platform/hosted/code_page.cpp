#include "platform/code_page.h"

#include <algorithm>
#include <iterator>

#include "platform/unicode.h"

namespace tidemark {
namespace {

// Windows-1252 differs from the first 256 characters in these alone: the bytes 0x80 to 0x9F.
constexpr char32_t kMiddle[] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Characters that the code page lacks and the near ones that the platform's conversion puts in
// their place (its best-fit table, as WideCharToMultiByte applies it): from `first` on, one byte
// each.
struct NearRun {
  char32_t first;
  std::string_view bytes;
};
constexpr NearRun kNear[] = {
    {0x0100, "AaAaAaCcCcCcCcDd\320dEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi?\?JjKk?LlLlLl?\?LlNnNnNn"},
    {0x014C, "OoOoOo"},
    {0x0154, "RrRrRrSsSsSs"},
    {0x0162, "TtTtTtUuUuUuUuUuUuWwYy"},
    {0x0179, "ZzZz"},
    {0x0180, "b"},
    {0x0189, "\320"},
    {0x0191, "\203"},
    {0x0197, "I?\?l"},
    {0x019F, "OOo"},
    {0x01AB, "t?\?TUu"},
    {0x01B6, "z"},
    {0x01C0, "|?\?!"},
    {0x01CD, "AaIiOoUuUuUuUuUu?Aa"},
    {0x01E4, "GgGgKkOoOo?\?j"},
    {0x0261, "g"},
    {0x02B9, "'\"?'"},
    {0x02C4, "^"},
    {0x02C8, "'\257\264`?_"},
    {0x02DA, "\260"},
    {0x0300, "`\264^~\257\257?\?\250?\260"},
    {0x030E, "\""},
    {0x0327, "\270"},
    {0x0331, "__"},
    {0x037E, ";"},
    {0x0393, "G"},
    {0x0398, "T"},
    {0x03A3, "S?\?F?\?O"},
    {0x03B1, "a\337?de"},
    {0x03BC, "\265"},
    {0x03C0, "p?\?st?f"},
    {0x04BB, "h"},
    {0x0589, ":"},
    {0x066A, "%"},
    {0x2000, "       "},
    {0x2010, "--"},
    {0x2017, "="},
    {0x2024, "\267"},
    {0x2032, "'?\?`"},
    {0x2044, "/"},
    {0x2070, "\260"},
    {0x2074, "45678"},
    {0x207F, "n0123456789"},
    {0x20A1, "\242?\?\243?\?P"},
    {0x2102, "C"},
    {0x2107, "E?\?gHHHh?IILl?N?\?PPQRRR"},
    {0x2124, "Z"},
    {0x2128, "Z?K\305BCeeEF?Mo"},
    {0x2205, "\330"},
    {0x2212, "-\261?/\\*\260\267v"},
    {0x221E, "8"},
    {0x2223, "|"},
    {0x2229, "n"},
    {0x2236, ":"},
    {0x223C, "~"},
    {0x2248, "\230"},
    {0x2261, "=?\?=="},
    {0x226A, "\253\273"},
    {0x22C5, "\267"},
    {0x2302, "\246^"},
    {0x2310, "\254"},
    {0x2320, "()"},
    {0x2329, "<>"},
    {0x2500, "-?\246"},
    {0x250C, "+"},
    {0x2510, "+"},
    {0x2514, "+"},
    {0x2518, "+"},
    {0x251C, "+"},
    {0x2524, "\246"},
    {0x252C, "-"},
    {0x2534, "-"},
    {0x253C, "+"},
    {0x2550, "-\246++++++++++++\246\246\246\246\246\246------+++"},
    {0x2580, "\257"},
    {0x2584, "_"},
    {0x2588, "\246"},
    {0x258C, "\246"},
    {0x2590, "\246\246\246\246"},
    {0x25A0, "\246"},
    {0x263C, "\244"},
    {0x2758, "|"},
    {0x3000, " "},
    {0x3008, "<>\253\273"},
    {0x301A, "[]"},
    {0x30FB, "\267"},
    {0xFF01,
     "!\"#$%&'()*+,-./"
     "0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~"},
};

char ByteOf(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto* const exact = std::find(std::begin(kMiddle), std::end(kMiddle), character);
  if (exact != std::end(kMiddle)) return static_cast<char>(0x80 + (exact - std::begin(kMiddle)));
  const auto* const behind =
      std::upper_bound(std::begin(kNear), std::end(kNear), character,
                       [](char32_t value, const NearRun& run) { return value < run.first; });
  if (behind == std::begin(kNear)) return '?';
  const NearRun& run = *std::prev(behind);
  const std::size_t offset = character - run.first;
  return offset < run.bytes.size() ? run.bytes[offset] : '?';
}

}  // namespace

std::string ToSystemCodePage(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  for (std::size_t position = 0; position < utf8.size();) {
    const char32_t character = NextCharacter(utf8, position);
    bytes += ByteOf(character);
    // The platform converts 16-bit units, so a character of two units gives two bytes.
    if (character >= 0x10000 && character != kNoCharacter) bytes += '?';
  }
  return bytes;
}

std::string FromSystemCodePage(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendUtf8(text, byte >= 0x80 && byte < 0xA0 ? kMiddle[byte - 0x80] : byte);
  }
  return text;
}

}  // namespace tidemark
