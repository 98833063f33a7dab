#include "toolkit/text_box.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tidemark {
namespace {

TEST(TextBox, SelectsWholeCharacters) {
  // 1 byte, 2, 3 and 4, and a byte that is no character.
  const std::string text = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xA4";
  const struct {
    int start, length, real_start, real_length;
  } cases[] = {{0, 1, 0, 1},   {1, 1, 1, 2},   {2, 1, 1, 2},  {5, 0, 3, 0},
               {3, 2, 3, 3},   {7, 9, 6, 5},   {6, 3, 6, 4},  {9, 2, 6, 4},
               {10, 1, 10, 1}, {99, 9, 11, 0}, {-5, -5, 0, 0}};
  TextBox box(nullptr, "box");
  box.SetText(text);
  for (const auto& c : cases) {
    box.SetSelStart(c.start);
    box.SetSelLength(c.length);
    EXPECT_EQ(box.SelStart(), c.real_start) << c.start << ' ' << c.length;
    EXPECT_EQ(box.SelLength(), c.real_length) << c.start << ' ' << c.length;
  }
}

TEST(TextBox, HasChangedItsStateWhenItRaisesChanged) {
  TextBox box(nullptr, "box");
  box.SetText("one two");
  std::string seen;
  box.Changed.Bind(
      [&] { seen += box.Text().String() + '@' + std::to_string(box.SelStart()) + ' '; });
  box.SetSelStart(4);
  box.SetSelLength(3);
  box.SetSelText("2");
  box.SetText("one 2");
  box.SetSelText(std::string_view("\0x", 2));  // a text ends at its first NUL
  EXPECT_EQ(seen, "one 2@5 ");
  EXPECT_EQ(box.SelStart(), 5);
}

}  // namespace
}  // namespace tidemark
