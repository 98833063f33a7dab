// Texts of the platform: letter case, the system's code page, 16-bit texts, variables.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "platform/code_page.h"
#include "platform/letter_case.h"
#include "platform/unicode.h"
#include "platform/winapi.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

TEST(LetterCase, MapsOneCharacterToOne) {
  const struct {
    const char* lower;
    const char* upper;
  } kPairs[] = {
      {"az19_", "AZ19_"},
      {"\u00E0\u00FE\u00FF", "\u00C0\u00DE\u0178"},
      {"\u03B1\u03C9\u03AC", "\u0391\u03A9\u0386"},
      {"\u0436\u0451", "\u0416\u0401"},
      {"\uFF41", "\uFF21"},
  };
  for (const auto& [lower, upper] : kPairs) {
    EXPECT_EQ(UpperCase(std::string_view(lower)), upper);
    EXPECT_EQ(LowerCase(std::string_view(upper)), lower);
  }
  // No single capital; divided by no case; no UTF-8.
  for (const std::string_view same : {"\u00DF\u0131", "\u00D7\u00F7", "\xFF\xC3"}) {
    EXPECT_EQ(UpperCase(same), same);
  }
}

TEST(LetterCase, OrdersByCapitals) {
  EXPECT_EQ(CompareIgnoringCase("Stra\u00DFe \u00E9", "STRA\u00DFE \u00C9"), 0);
  const char* const kAscending[] = {"",  "a",      "AB",     "a\\",        "a_",
                                    "b", "\u00E9", "\u0436", "\U0001F600", "\uFF41"};
  for (std::size_t i = 0; i < std::size(kAscending); ++i) {
    for (std::size_t j = 0; j < std::size(kAscending); ++j) {
      const int order = CompareIgnoringCase(kAscending[i], kAscending[j]);
      EXPECT_EQ(order < 0, i < j) << kAscending[i] << " : " << kAscending[j];
      EXPECT_EQ(order > 0, i > j) << kAscending[i] << " : " << kAscending[j];
    }
  }
}

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
  for (const auto& [utf16, utf8] : {std::pair{"A\0\xE9\0"s, "A\u00E9"},
                                    {"\x3D\xD8\x00\xDE"s, "\U0001F600"},
                                    {"\x3D\xD8"s, "\uFFFD"},  // half a pair
                                    {"A\0B"s, "A\uFFFD"}}) {  // half a unit
    EXPECT_EQ(Utf8FromUtf16(utf16), utf8);
  }
  EXPECT_EQ(Utf16FromUtf8("A\U0001F600"), "A\0\x3D\xD8\x00\xDE"s);
  for (const char* const broken : {"\xFF", "\xC3", "\xE2\x82", "\xC0\x80", "\xED\xA0\x80"}) {
    EXPECT_EQ(Utf16FromUtf8(broken).substr(0, 2), "\xFD\xFF") << "not UTF-8";
  }
}

std::string Expand(const std::string& text) {
  char buffer[512] = "";
  const DWORD size = ExpandEnvironmentStringsA(text.c_str(), buffer, sizeof(buffer));
  EXPECT_EQ(size, std::string(buffer).size() + 1) << text;
  return buffer;
}

TEST(Environment, VariablesAreExpandedAndUnknownOnesStay) {
  TestPc pc;
  pc.SetVariable("TmOne", "1");
  pc.SetVariable("TmPath", "C:\\A B");
  const struct {
    const char* text;
    const char* expanded;
  } kCases[] = {
      {"", ""},
      {"plain", "plain"},
      {"%TMPATH%\\x", "C:\\A B\\x"},
      {"%tmone%%TmOne%", "11"},
      {"%TmNope%", "%TmNope%"},
      {"100%", "100%"},
      {"%TmOne", "%TmOne"},
  };
  for (const auto& [text, expanded] : kCases) EXPECT_EQ(Expand(text), expanded);
  char buffer[1];
  EXPECT_GE(ExpandEnvironmentStringsA("%TmOne%", buffer, sizeof(buffer)), 2U) << "what suffices";
}

}  // namespace
}  // namespace tidemark
