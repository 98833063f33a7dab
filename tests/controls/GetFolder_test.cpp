#include "controls/GetFolder.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace tidemark
