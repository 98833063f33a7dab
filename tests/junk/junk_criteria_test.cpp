#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "junk/junk.h"
#include "tests/support/settings.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

using Lines = std::vector<std::string>;

Lines Table(const ListView& list) {
  Lines rows;
  for (int index = 1; index <= list.Count(); ++index) {
    const ListItem& row = *list.Item(index);
    rows.push_back((row.Checked() ? "+" : "-") + row.Caption().String() + "|" +
                   row.SubItem(1).String());
  }
  return rows;
}

TEST(JunkCriteria, ShippedTablesServeWhereNothingIsStored) {
  WindowPc on;
  LoadFileTypes(on.window);
  LoadExcludeFolders(on.window);
  const Lines types = Table(on.window.lvFileTypes);
  ASSERT_EQ(types.size(), 14U);
  EXPECT_EQ(types[12], "+0???????.nch|Temporary Cached newsgroup Data");
  const Lines folders = Table(on.window.lvExcludeFolders);
  ASSERT_EQ(folders.size(), 11U);
  EXPECT_EQ(folders[9], "+\\program files|Application data");
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

TEST(JunkCriteria, EveryChangeIsStoredAndATickToo) {
  WindowPc on;
  Store("FileTypes", "*.a;*.b");
  Store("FileDesc", "one;two");
  Store("FileState", "1;0");
  LoadFileTypes(on.window);
  on.window.lvFileTypes.UserCheck(*on.window.lvFileTypes.Item(2), true);
  EXPECT_EQ(Stored("FileState"), "1;1");
  on.front_end.AnswerInput(" *.EXE ");
  on.front_end.AnswerInput(" capitals; and more ");
  EditFileTypes(on.window, 0);
  EXPECT_EQ(Table(on.window.lvFileTypes), (Lines{"+*.a|one", "+*.b|two", "+*.EXE|capitals"}))
      << "the second half of the description belongs to a row that is not there";
  EXPECT_EQ(Stored("FileDesc"), "one;two;capitals; and more");
  on.window.lvFileTypes.UserSelect(*on.window.lvFileTypes.Item(1));
  on.front_end.AnswerInput("*.z");
  on.front_end.AnswerInput("zed");
  on.front_end.AnswerYesNo(true);
  EditFileTypes(on.window, 1);
  EXPECT_EQ(Stored("FileTypes"), "*.z;*.b;*.EXE");
  for (int rows = 3; rows > 0; --rows) {
    on.window.lvFileTypes.UserSelect(*on.window.lvFileTypes.Item(1));
    on.front_end.AnswerYesNo(true);
    EditFileTypes(on.window, 2);
  }
  EXPECT_EQ(Stored("FileTypes"), "");
  EditFileTypes(on.window, 3);
  EXPECT_EQ(on.window.lvFileTypes.Count(), 0) << "the question was not answered with yes";
  on.front_end.AnswerYesNo(true);
  EditFileTypes(on.window, 3);
  EXPECT_EQ(on.window.lvFileTypes.Count(), 14);
}

TEST(JunkCriteria, WhatIsNeverJunkIsRefusedAsIsACancelledQuestion) {
  for (const char* pattern : {"*.exe", "exe", ".dll", "*", ",", ""}) {
    WindowPc on;
    Store("FileTypes", "");
    LoadFileTypes(on.window);
    on.front_end.AnswerInput(pattern);
    EditFileTypes(on.window, 0);
    EXPECT_EQ(on.window.lvFileTypes.Count(), 0) << pattern;
    EXPECT_EQ(on.front_end.messages().back(), "Tidemark: This type of files are not junk files.");
  }
}

TEST(JunkCriteria, ExcludedFoldersArePickedAndDescribed) {
  WindowPc on;
  Store("ExcludeFolder", "");
  LoadExcludeFolders(on.window);
  on.front_end.AnswerFolder("C:\\Keep");
  on.front_end.AnswerInput("mine");
  EditExcludeFolders(on.window, 0);
  EXPECT_EQ(Stored("ExcludeFolder"), "C:\\Keep");
  EXPECT_EQ(on.window.lvExcludeFolders.SelectedItem(), on.window.lvExcludeFolders.Item(1));
  for (const int edit : {0, 1}) {
    on.front_end.AnswerFolder("C:\\Keep; and more");
    EditExcludeFolders(on.window, edit);
    EXPECT_EQ(on.front_end.messages().back(),
              "Tidemark: A path with \";\" in it can't be kept in this list.");
  }
  EXPECT_EQ(Stored("ExcludeFolder"), "C:\\Keep");
  on.front_end.AnswerInput("still mine");
  on.front_end.AnswerYesNo(true);
  EditExcludeFolders(on.window, 1);
  EXPECT_EQ(Table(on.window.lvExcludeFolders), Lines{"+C:\\Keep|still mine"})
      << "a cancelled folder dialog keeps the folder";
  EXPECT_EQ(on.window.lvExcludeFolders.SelectedItem(), on.window.lvExcludeFolders.Item(1))
      << "the edited row";
  on.front_end.AnswerYesNo(true);
  EditExcludeFolders(on.window, 2);
  EXPECT_EQ(Stored("ExcludeFolder"), "");
  EditExcludeFolders(on.window, 3);
  EXPECT_EQ(on.window.lvExcludeFolders.Count(), 0) << "there is no revert for folders";
}

}  // namespace
}  // namespace tidemark
