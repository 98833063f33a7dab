#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "junk/junk.h"
#include "tests/support/expected_text.h"
#include "tests/support/settings.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

using Lines = std::vector<std::string>;

// The selected row comes first with ">", a ticked one with "+".
Lines Table(const ListView& list) {
  Lines rows;
  for (int index = 1; index <= list.Count(); ++index) {
    const ListItem& row = *list.Item(index);
    rows.push_back((list.SelectedItem() == &row ? ">" : "") +
                   std::string(row.Checked() ? "+" : "-") + row.Caption().String() + "|" +
                   row.SubItem(1).String());
  }
  return rows;
}

TEST(JunkCriteria, OddStoredTextsLoadAsTheyStand) {
  WindowPc on;
  Store("FileTypes", "*.a;*.b;*.c;*.d");
  Store("FileDesc", "one;two;three");
  Store("FileState", " 1;x;01");
  LoadFileTypes(on.window);
  EXPECT_EQ(Table(on.window.lvFileTypes), (Lines{"+*.a|one", "-*.b|two", "+*.c|three", "-*.d|"}));
  Store("FileTypes", "");
  LoadFileTypes(on.window);
  EXPECT_EQ(on.window.lvFileTypes.Count(), 0) << "empty is not missing";
}

TEST(JunkCriteria, AreEditedWithTheseQuestionsAndStoredAtOnce) {
  // Each with the first row selected. Of a folder's answers the first one is that of the picker.
  const struct {
    void (*edit)(frmMain&, int);
    int button;
    Lines answers = {};
    bool yes = false;
  } kClicks[] = {
      {EditFileTypes, 4},  // nothing
      {EditFileTypes, 0, {"*.exe"}},
      {EditFileTypes, 0, {"exe"}},
      {EditFileTypes, 0, {","}},
      {EditFileTypes, 0},  // cancelled
      {EditFileTypes, 0, {"*.c"}},
      {EditFileTypes, 0, {" *.EXE ", " capitals; and more "}},
      {EditFileTypes, 1, {" *.---", "Temporary Files "}},  // as it was
      {EditFileTypes, 1, {"*.---", "zed"}},
      {EditFileTypes, 1, {"*.z", "Temporary Files"}, true},
      {EditFileTypes, 1, {"*.dll"}},
      {EditFileTypes, 2},
      {EditFileTypes, 2, {}, true},
      {EditFileTypes, 3},
      {EditFileTypes, 3, {}, true},
      {EditExcludeFolders, 0, {"C:\\Keep", "mine"}},
      {EditExcludeFolders, 0, {"C:\\Keep"}},
      {EditExcludeFolders, 0, {"C:\\Keep; and more"}},
      {EditExcludeFolders, 1, {"", "bin"}, true},  // a cancelled picker keeps the folder
      {EditExcludeFolders, 1, {"", "bin"}},
      {EditExcludeFolders, 1, {"C:\\a;b"}},
      {EditExcludeFolders, 2},
      {EditExcludeFolders, 2, {}, true},
      {EditExcludeFolders, 3},
  };
  WindowPc on;
  LoadFileTypes(on.window);
  LoadExcludeFolders(on.window);
  on.window.lvFileTypes.UserCheck(*on.window.lvFileTypes.Item(2), false);
  Lines seen;
  Lines told[2];
  // What the table holds, and what is stored of it, as far as that has changed.
  const auto tell = [&](bool types) {
    Lines lines = Table(types ? on.window.lvFileTypes : on.window.lvExcludeFolders);
    for (const char* name : types ? std::array{"FileTypes", "FileDesc", "FileState"}
                                  : std::array{"ExcludeFolder", "ExcludeDesc", "ExcludeState"}) {
      lines.push_back(Stored(name));
    }
    for (const std::string& line : lines) {
      const Lines& before = told[types ? 1 : 0];
      if (std::count(before.begin(), before.end(), line) == 0) seen.push_back("    " + line);
    }
    told[types ? 1 : 0] = lines;
  };
  for (const bool types : {true, false}) tell(types);
  for (const auto& click : kClicks) {
    const bool types = click.edit == EditFileTypes;
    ListView& list = types ? on.window.lvFileTypes : on.window.lvExcludeFolders;
    list.UserSelect(*list.Item(1));
    seen.push_back((types ? "Types " : "Folders ") + std::to_string(click.button));
    for (std::size_t index = 0; index < click.answers.size(); ++index) {
      const bool picked = !types && index == 0;
      picked ? on.front_end.AnswerFolder(click.answers[index])
             : on.front_end.AnswerInput(click.answers[index]);
    }
    if (click.yes) on.front_end.AnswerYesNo(true);
    const std::size_t shown = on.front_end.messages().size();
    click.edit(on.window, click.button);
    for (std::size_t index = shown; index < on.front_end.messages().size(); ++index) {
      seen.push_back("  " + on.front_end.messages()[index]);
    }
    tell(types);
  }
  for (const MessageIcon icon : on.front_end.icons()) EXPECT_EQ(icon, MessageIcon::kCritical);
  ExpectLinesOf("junk/expected_criteria.txt", seen);
}

TEST(JunkCriteria, AnEmptiedTableStaysEmpty) {
  WindowPc on;
  Store("FileTypes", "*.a");
  LoadFileTypes(on.window);
  on.window.lvFileTypes.UserSelect(*on.window.lvFileTypes.Item(1));
  on.front_end.AnswerYesNo(true);
  EditFileTypes(on.window, 2);
  LoadFileTypes(on.window);
  EXPECT_EQ(Table(on.window.lvFileTypes), Lines{});
  for (const int button : {1, 2}) EditFileTypes(on.window, button);
  EXPECT_EQ(on.front_end.messages().size(), 1U) << "no row is selected";
}

}  // namespace
}  // namespace tidemark
