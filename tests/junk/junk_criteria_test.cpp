#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "helpers/text_helpers.h"
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
  // The first row is selected each time: which table's editor, its button, the answers ("yes" to a
  // question); of a folder's answers the first one is that of the picker.
  constexpr const char* kClicks =
      "Types|4\nTypes|0|*.exe\nTypes|0|exe\nTypes|0|,\nTypes|0\nTypes|0|*.c\n"
      "Types|0| *.EXE | capitals; and more \nTypes|1| *.---|Temporary Files \n"
      "Types|1|*.---|zed\nTypes|1|*.z|Temporary Files|yes\nTypes|1|*.dll\nTypes|2\nTypes|2|yes\n"
      "Types|3\nTypes|3|yes\nFolders|0|C:\\Keep|mine\nFolders|0|C:\\Keep\n"
      "Folders|0|C:\\Keep; and more\nFolders|1||bin|yes\nFolders|1||bin\nFolders|1|C:\\a;b\n"
      "Folders|2\nFolders|2|yes\nFolders|3";
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
  for (const std::string& click : Split(kClicks, '\n')) {
    const Lines parts = Split(click, '|');
    const bool types = parts[0] == "Types";
    ListView& list = types ? on.window.lvFileTypes : on.window.lvExcludeFolders;
    list.UserSelect(*list.Item(1));
    for (std::size_t index = 2; index < parts.size(); ++index) {
      if (parts[index] == "yes") {
        on.front_end.AnswerYesNo(true);
      } else if (!types && index == 2) {
        on.front_end.AnswerFolder(parts[index]);
      } else {
        on.front_end.AnswerInput(parts[index]);
      }
    }
    seen.push_back(click);
    const std::size_t shown = on.front_end.messages().size();
    (types ? EditFileTypes : EditExcludeFolders)(on.window, std::stoi(parts[1]));
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
