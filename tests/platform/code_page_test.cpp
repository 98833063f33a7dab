#include "platform/code_page.h"

#include <gtest/gtest.h>

#include "platform/unicode.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

// Both grounds' systems are Windows-1252.
TEST(CodePage, TurnsEveryCharacterIntoItselfANearOneOrAQuestionMark) {
  const TestPc pc;
  const struct {
    const char* utf8;
    const char* bytes;
  } kCases[] = {
      {"", ""},
      {"C:\\Caf\u00E9\\\u20AC \u0178", "C:\\Caf\xE9\\\x80 \x9F"},
      {"\u0100\u0101 \u0142 \u0398", "Aa l T"},  // near letters
      {"\uFF21\uFF5E\u2010\u2212", "A~--"},      // full-width letters, other dashes
      {"\u4E2D\u0416", "??"},                    // none near
      {"\U0001F600", "\?\?"},                    // two 16-bit units
      {"\u0081", "\x81"},
  };
  for (const auto& [utf8, bytes] : kCases) EXPECT_EQ(ToSystemCodePage(utf8), bytes) << utf8;
}

TEST(CodePage, ComesBackFromAllBytes) {
  const TestPc pc;
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(ToSystemCodePage(FromSystemCodePage(bytes)), bytes);
  EXPECT_EQ(FromSystemCodePage("\x80\x8D\xE9"), "\u20AC\u008D\u00E9");
}

TEST(CodePage, ReadsAnySixteenBitText) {
  using namespace std::string_literals;
  const struct {
    std::string utf16;
    std::string utf8;
  } kCases[] = {
      {"A\0\xE9\0"s, "A\u00E9"},
      {"\x3D\xD8\x00\xDE"s, "\U0001F600"},
      {"\x3D\xD8"s, "\uFFFD"},  // half a pair
      {"\x00\xDE\x41\x00"s,
       "\uFFFD"
       "A"},
      {"A\0B"s, "A\uFFFD"},  // half a unit
      {"\0\0"s, "\0"s},
  };
  for (const auto& [utf16, utf8] : kCases) EXPECT_EQ(Utf8FromUtf16(utf16), utf8);
  EXPECT_EQ(Utf16FromUtf8("A\U0001F600"), "A\0\x3D\xD8\x00\xDE"s);
  for (const char* const broken : {"\xFF", "\xC3", "\xE2\x82", "\xC0\x80", "\xED\xA0\x80"}) {
    EXPECT_EQ(Utf16FromUtf8(broken).substr(0, 2), "\xFD\xFF") << "not UTF-8";
  }
}

}  // namespace
}  // namespace tidemark
