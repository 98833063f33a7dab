#include "controls/GetFolder.h"

#include <gtest/gtest.h>

#include "toolkit/control_group.h"
#include "toolkit/option_button.h"
#include "toolkit/script_front_end.h"

namespace tidemark {
namespace {

struct FolderPicker : testing::Test {
  ScriptFrontEnd front_end;
  GetFolder picker{nullptr, "FolderPicker", front_end};
};

TEST_F(FolderPicker, TakesTheChosenFolderAndRaisesChangeOnce) {
  constexpr int kDown = 40;
  const struct {
    const char* answer;
    int key, shift;  // no key: the button
    const char* text;
    int changes;
  } cases[] = {
      {"C:\\Temp", 0, 0, "C:\\Temp", 1},
      {"", 0, 0, "old", 0},                   // cancelled, or a choice without a path
      {"old", 0, 0, "old", 0},                // the same again
      {"C:\\Temp", kDown, 4, "C:\\Temp", 1},  // Alt and the down arrow
      {"C:\\Temp", kDown, 0, "old", 0},
      {"C:\\Temp", kDown, 5, "old", 0},
      {"C:\\Temp", 38, 4, "old", 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.answer << ' ' << c.key << ' ' << c.shift);
    ScriptFrontEnd dialog;
    GetFolder fresh(nullptr, "FolderPicker", dialog);
    fresh.SetText("old");
    int raised = 0;
    fresh.Change.Bind([&raised] { ++raised; });
    dialog.AnswerFolder(c.answer);
    if (c.key != 0) {
      fresh.UserKeyDown(c.key, c.shift);
    } else {
      fresh.cmdBrowse.Click();
    }
    EXPECT_EQ(fresh.Text(), c.text);
    EXPECT_EQ(raised, c.changes);
  }
}

TEST_F(FolderPicker, TakesNoFolderWhileItIsDisabled) {
  picker.SetToolTipText("Where to look");
  picker.UserShow();
  EXPECT_EQ(picker.txtFolder.ToolTipText(), "Where to look");
  front_end.AnswerFolder("C:\\Other");
  picker.SetEnabled(false);
  EXPECT_FALSE(picker.txtFolder.Enabled());
  picker.cmdBrowse.Click();
  picker.UserKeyDown(40, 4);
  EXPECT_EQ(picker.Text(), "");
  picker.SetEnabled(true);
  picker.cmdBrowse.Click();
  EXPECT_EQ(picker.Text(), "C:\\Other");
}

TEST_F(FolderPicker, KeepsTheButtonAtItsRightEnd) {
  const Bounds& button = picker.cmdBrowse.Place();
  const Bounds& text_box = picker.txtFolder.Place();
  for (const int width : {100, 3000}) {
    picker.SetPlace({50, 60, width, 300});
    picker.Resize();
    EXPECT_EQ(button.left + button.width, width);
    EXPECT_GE(text_box.width, 0);
  }
  EXPECT_GE(picker.Line().left, text_box.width);
  EXPECT_LE(picker.Line().left + picker.Line().width, button.left);
}

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

TEST(OptionButton, IsTheOnlyChosenOneOfItsContainer) {
  Form form("form");
  ControlGroup<OptionButton> options("options", &form, 3);
  OptionButton other(nullptr, "elsewhere");
  other.SetValue(true);
  int clicks = 0;
  options(1).Clicked.Bind([&] { clicks += options(1).Value() && !options(0).Value() ? 1 : 100; });
  options(0).SetValue(true);
  options(1).Click();
  options(1).SetValue(true);
  options(2).SetEnabled(false);
  options(2).Click();
  EXPECT_EQ(clicks, 1);
  EXPECT_TRUE(options(1).Value());
  EXPECT_FALSE(options(0).Value() || options(2).Value());
  EXPECT_TRUE(other.Value());
}

}  // namespace
}  // namespace tidemark
