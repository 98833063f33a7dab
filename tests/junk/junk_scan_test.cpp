#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "junk/junk.h"
#include "tests/support/settings.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

using Lines = std::vector<std::string>;

// "+C:\\a.tmp" for each row, with "-" when it is not ticked.
Lines Rows(const ListView& list) {
  Lines rows;
  for (int index = 1; index <= list.Count(); ++index) {
    const ListItem& row = *list.Item(index);
    rows.push_back((row.Checked() ? "+" : "-") + row.Caption().String());
  }
  return rows;
}

// Junk is looked for below the test's own folder, with two patterns and nothing excluded.
class JunkPc : public WindowPc {
 public:
  JunkPc() {
    for (const char* type : {"*.tmp", "~*.*", "*.bak"}) {
      window.lvFileTypes.Add({}, type)->SetChecked(true);
    }
    window.SelectedFileTypes = "*.tmp;~*.*;*.bak";
    root = pc.folder() + "\\junk";
    pc.MakeFolder(root);
  }
  // Paths below the root.
  Lines Found() {
    Lines found;
    for (const std::string& row : WindowPc::Rows(window.lvJunkFiles, {0})) {
      found.push_back(row.substr(root.size() + 1));
    }
    std::sort(found.begin(), found.end());
    return found;
  }
  void Scan() {
    window.lvJunkFiles.Clear();
    ScanFolder(window, root);
  }

  std::string root;
};

TEST(JunkScan, TellsHowManyFilesAreTickedAndTheirSize) {
  WindowPc on;
  for (const auto& [path, size] :
       {std::pair{"C:\\a", "3000"}, {"C:\\b", "1500000"}, {"C:\\a", "3000"}}) {
    ListItem* row = on.window.lvJunkFiles.Add({}, path);
    row->SetSubItem(1, size);
    row->SetChecked(true);
  }
  on.window.lvJunkFiles.UserCheck(*on.window.lvJunkFiles.Item(2), false);
  EXPECT_EQ(on.window.lblJunkTicked.Caption(), "Ticked : 1, 2 KB") << "one file in two rows";
  on.window.cmdJunkFile(0).Click();
  EXPECT_EQ(on.window.lblJunkTicked.Caption(), "Ticked : 2, 1.4 MB");
}

TEST(JunkScan, AFileHasARowForEachPatternThatItMatches) {
  JunkPc on;
  for (const char* name : {"~y.tmp", "deep\\er\\e.bak", "keep\\below\\a.tmp"}) {
    on.pc.MakeFile(on.root + "\\" + name);
  }
  on.window.lvExcludeFolders.Add({}, "JUNK\\KEEP");
  on.Scan();
  EXPECT_EQ(on.Found(), (Lines{"deep\\er\\e.bak", "~y.tmp", "~y.tmp"}));
  EXPECT_EQ(on.window.lvJunkFiles.Item(1)->SubItem(1), "1") << "bytes";
  EXPECT_TRUE(on.window.lvJunkFiles.Item(1)->Checked());
  EXPECT_EQ(AttributeLetters(0xFF), "HLRAS");
  on.window.SelectedFileTypes.clear();
  on.Scan();
  EXPECT_EQ(on.Found(), Lines{}) << "no pattern is ticked";
}

TEST(JunkScan, AFolderWhosePathMeansItsNamesakeIsNotEntered) {
  JunkPc on;
  on.pc.MakeFile(on.root + "\\name\\a.tmp");
  for (const char* folder : {"\\name.", "\\name "})
    on.pc.MakeDeepFile(on.root + folder + "\\a.tmp");
  on.Scan();
  EXPECT_EQ(on.Found(), Lines{"name\\a.tmp"});
}

TEST(JunkScan, ASortedListIsFilledInItsOrder) {
  JunkPc on;
  for (const char* name : {"111", "3", "22"}) on.pc.MakeFile(on.root + '\\' + name + ".tmp", name);
  on.window.lvJunkFiles.UserColumnClick(2);
  on.Scan();
  EXPECT_EQ(WindowPc::Rows(on.window.lvJunkFiles, {1}), (Lines{"1", "2", "3"})) << "bytes";
}

// Files in a root folder have two rows, and two more for a second pattern.
TEST(JunkScan, ARunningScanIsComeBackToAndRowsOfOneFileGoTogether) {
  if (!TestPc::CanFault()) GTEST_SKIP() << "the drive has files of its own";
  JunkPc on;
  on.pc.MakeFile("C:\\~1.tmp");
  on.pc.MakeFile("C:\\~2.tmp");
  on.window.cmdCleanJunk.Click();
  on.window.tvDrives.UserCheck(*on.window.tvDrives.Node(1), true);
  ListView& files = on.window.lvJunkFiles;
  const auto come_back = [&on] {
    on.window.cmdMenuHome.Click();
    on.window.cmdCleanJunk.Click();
  };
  on.front_end.When([&files] { return files.Count() == 3; },
                    [&] {
                      files.UserCheck(*files.Item(1), false);
                      EXPECT_EQ(Rows(files), (Lines{"-C:\\~1.tmp", "+C:\\~2.tmp", "-C:\\~1.tmp"}));
                      come_back();
                      EXPECT_TRUE(on.window.picScaningJunk.Visible());
                      EXPECT_FALSE(on.window.cmdJunkScan.Enabled());
                    });
  on.window.cmdJunkScan.Click();
  Lines all;
  for (int times = 0; times < 4; ++times) {
    for (const char* row : {"-C:\\~1.tmp", "+C:\\~2.tmp"}) all.emplace_back(row);
  }
  EXPECT_EQ(Rows(files), all) << "also what came into the list later";
  come_back();
  EXPECT_FALSE(on.window.picScaningJunk.Visible());
  on.window.cmdJunkFile(3).Click();
  EXPECT_TRUE(on.pc.FileExists("C:\\~1.tmp"));
  EXPECT_FALSE(on.pc.FileExists("C:\\~2.tmp"));
  EXPECT_EQ(files.Count(), 4);
  on.window.cmdJunkFile(5).Click();
  come_back();
  EXPECT_FALSE(on.window.picJunkScan.Visible()) << "no rows: the criteria";
}

TEST(JunkScan, StopsAtTheNextTestAndKeepsWhatWasFound) {
  JunkPc on;
  for (int file = 0; file < 50; ++file) {
    on.pc.MakeFile(on.root + "\\f" + std::to_string(file) + "\\a.tmp");
  }
  on.front_end.When([&on] { return on.window.lvJunkFiles.Count() == 3; },
                    [&on] { on.window.cmdJunkStop.Click(); });
  on.Scan();
  EXPECT_EQ(on.window.lvJunkFiles.Count(), 3);
  EXPECT_TRUE(on.window.StopRequested);
}

TEST(JunkScan, TheWholeScanShowsItsPanelsAndSaysHowManyThereAre) {
  JunkPc on;
  cmdCleanJunk_Click(on.window);
  on.window.tvDrives.Clear();
  on.window.cmdJunkScan.Click();
  EXPECT_EQ(on.front_end.messages(),
            Lines{"Tidemark: Please Select the drives before pressing Scan Button"});
  EXPECT_EQ(on.window.lblJunkStatus.Caption(), "Scanning complete: Total 0 Junk Files Founds");
  EXPECT_TRUE(on.window.picJunkScan.Visible());
  EXPECT_FALSE(on.window.picScaningJunk.Visible());
  on.window.cmdJunkFile(5).Click();
  EXPECT_EQ(on.window.picJunkScan.Place().left, 10000);
}

TEST(JunkDrives, TicksAreStoredAndOpticalDrivesAreNotShown) {
  WindowPc on;
  on.pc.SetDrive('D', "cdrom label=Disc");
  on.pc.SetDrive('N', "network share=\\\\server\\docs");
  on.pc.SetDrive('O', "network");
  Store("Drives", "C;Q;");
  ShowDrivesList(on.window);
  std::map<std::string, TreeNode*> nodes;
  for (int index = 1; index <= on.window.tvDrives.Count(); ++index) {
    TreeNode* node = on.window.tvDrives.Node(index);
    nodes[node->Key().String()] = node;
  }
  ASSERT_TRUE(nodes.contains("C"));
  EXPECT_EQ(nodes["C"]->Caption(), "Local Disk (C:)");
  EXPECT_TRUE(nodes["C"]->Checked());
  on.window.tvDrives.UserCheck(*nodes["C"], false);
  EXPECT_EQ(Stored("Drives"), "");
  if (!TestPc::CanFault()) return;
  ASSERT_EQ(nodes.size(), 3U) << "no optical drive";
  EXPECT_EQ(nodes["O"]->Caption(), "Network (O:)");
  EXPECT_EQ(nodes["N"]->Caption(), "Network (\\\\server\\docs:)");
}

TEST(JunkRemoval, RowsAreTickedTogetherAndOnlyTickedOnesGo) {
  JunkPc on;
  for (const char* name : {"1.tmp", "2.tmp"}) on.pc.MakeFile(on.root + "\\" + name);
  on.Scan();
  for (const int button : {1, 3}) cmdJunkFile_Click(on.window, button);
  EXPECT_EQ(on.window.lvJunkFiles.Count(), 2) << "nothing is ticked";
  cmdJunkFile_Click(on.window, 2);
  on.window.lvJunkFiles.Item(2)->SetChecked(false);
  cmdJunkFile_Click(on.window, 3);
  EXPECT_EQ(on.pc.FileNames(on.root), Lines{"2.tmp"});
  EXPECT_FALSE(on.window.PbarRemoveJunk.Visible());
}

}  // namespace
}  // namespace tidemark
