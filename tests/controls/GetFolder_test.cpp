#include "controls/GetFolder.h"

#include <gtest/gtest.h>

#include "toolkit/script_front_end.h"

namespace tidemark {
namespace {

TEST(FolderPicker, TakesTheChosenFolderAndRaisesChangeOnce) {
  constexpr int kDown = 40;
  const struct {
    const char* answer;
    int key, shift;  // no key: the button
    const char* text;
    int changes;
    bool enabled = true;
  } cases[] = {
      {"C:\\Temp", 0, 0, "C:\\Temp", 1},
      {"", 0, 0, "old", 0},                   // cancelled, or a choice without a path
      {"old", 0, 0, "old", 0},                // the same again
      {"C:\\Temp", kDown, 4, "C:\\Temp", 1},  // Alt and the down arrow
      {"C:\\Temp", kDown, 0, "old", 0},
      {"C:\\Temp", 0, 0, "old", 0, false},
      {"C:\\Temp", kDown, 4, "old", 0, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.answer << ' ' << c.key << ' ' << c.shift);
    ScriptFrontEnd front_end;
    GetFolder picker(nullptr, "FolderPicker", front_end);
    picker.SetText("old");
    picker.SetEnabled(c.enabled);
    int raised = 0;
    picker.Change.Bind([&raised] { ++raised; });
    front_end.AnswerFolder(c.answer);
    c.key != 0 ? picker.UserKeyDown(c.key, c.shift) : picker.cmdBrowse.Click();
    EXPECT_EQ(picker.Text(), c.text);
    EXPECT_EQ(raised, c.changes);
  }
}

}  // namespace
}  // namespace tidemark
