#include "desktop/terminal/display_text.h"

#include <gtest/gtest.h>

namespace tidemark {
namespace {

TEST(DisplayText, IsHarmlessAndNoWiderThanAsked) {
  struct Case {
    std::string text;
    int width;
    std::string shown;
  };
  for (const Case& c :
       {Case{"abc", 3, "abc"}, Case{"abcd", 3, "ab…"}, Case{"abc", 1, "…"}, Case{"abc", 0, ""},
        Case{"abc", -4, ""}, Case{"", 3, ""}, Case{"héé", 3, "héé"}, Case{"漢字", 4, "漢字"},
        Case{"漢字", 3, "漢…"}, Case{"漢字", 2, "…"}, Case{"e\u0301e\u0301", 2, "e\u0301e\u0301"},
        Case{"\x1b[31m", 9, "·[31m"}, Case{"a\tb\r\n\x7f", 9, "a·b···"},
        Case{"\u009b"
             "2J",
             9, "·2J"},
        Case{"a\xff\xc3", 9, "a\uFFFD\uFFFD"}, Case{"\u202Egpj.exe", 9, "·gpj.exe"}}) {
    const std::string shown = Fit(Displayable(c.text), c.width);
    EXPECT_EQ(shown, c.shown) << c.text << " in " << c.width;
    EXPECT_LE(DisplayWidth(shown), std::max(c.width, 0)) << c.text;
  }
}

TEST(DisplayText, APathKeepsItsEnd) {
  for (const auto& [text, width, shown] : std::vector<std::tuple<std::string, int, std::string>>{
           {"C:\\Windows\\a.dll", 16, "C:\\Windows\\a.dll"},
           {"C:\\Windows\\System32\\a.dll", 15, "C:\\Wi…m32\\a.dll"},
           {"C:\\Windows\\System32\\a.dll", 8, "C:\\Wind…"},
           {"no path but a longer text", 15, "no path but a …"},
           {"C:\\漢字漢字漢字漢字漢字\\a.dll", 16, "C:\\漢…漢字\\a.dll"}}) {
    EXPECT_EQ(FitPath(text, width), shown);
    EXPECT_LE(DisplayWidth(FitPath(text, width)), width) << text;
  }
}

TEST(DisplayText, WrapsAtBlanksAndLineEnds) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(Wrap("", 10), Lines{});
  EXPECT_EQ(Wrap("one two three", 9), (Lines{"one two", "three"}));
  EXPECT_EQ(Wrap("unbreakable", 4), (Lines{"unbr", "eaka", "ble"}));
  EXPECT_EQ(Wrap("a\r\nb\n\nc", 9), (Lines{"a", "b", "", "c"}));
  EXPECT_EQ(Wrap("漢字", 1), (Lines{"漢", "字"}));
}

}  // namespace
}  // namespace tidemark
