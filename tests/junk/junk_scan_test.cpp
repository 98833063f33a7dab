#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "junk/junk.h"
#include "platform/unique_handle.h"
#include "tests/support/expected_text.h"
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
  ShowTickedFiles(on.window);
  on.window.lvJunkFiles.UserCheck(*on.window.lvJunkFiles.Item(2), false);
  EXPECT_EQ(on.window.lblJunkTicked.Caption(), "Ticked : 1, 2 KB") << "one file in two rows";
  on.window.cmdJunkFile(0).Click();
  EXPECT_EQ(on.window.lblJunkTicked.Caption(), "Ticked : 2, 1.4 MB");
}

TEST(JunkScan, AFolderWhosePathMeansItsNamesakeIsNotEntered) {
  JunkPc on;
  on.pc.MakeFile(on.root + "\\name\\a.tmp");
  for (const char* folder : {"\\name.", "\\name "})
    on.pc.MakeDeepFile(on.root + folder + "\\a.tmp");
  on.Scan();
  EXPECT_EQ(WindowPc::Rows(on.window.lvJunkFiles, {0}), Lines{on.root + "\\name\\a.tmp"});
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

// Watches a session: each state that differs from the one before is a line.
struct Session : JunkPc {
  std::string State() {
    frmMain& of = window;
    std::string state = of.lblJunkStatus.Caption().String();
    if (of.picScaningJunk.Visible()) state += " | at work";
    if (of.Animation2.Playing()) state += " | plays";
    for (int index = 0; index < of.cmdJunkFile.Count(); ++index) {
      if (index == 0 || of.cmdJunkFile(index).Visible() != of.cmdJunkFile(0).Visible()) {
        state += of.cmdJunkFile(index).Visible() ? " | buttons" : " | no buttons";
      }
    }
    const ProgressBar& bar = of.PbarRemoveJunk;
    if (bar.Visible()) {
      state += " | " + std::to_string(bar.Value()) + " of " + std::to_string(bar.Max());
    }
    return state;
  }
  void See() {
    if (seen.empty() || seen.back() != State()) seen.push_back(State());
  }
  void Watch() {
    front_end.When([] { return true; },
                   [this] {
                     See();
                     Watch();
                   });
  }
  // With the day of the last change: the moment of the making is the host's.
  void Do(const std::string& what, const std::function<void()>& action) {
    seen.push_back("# " + what);
    action();
    See();
    for (int index = 1; index <= window.lvJunkFiles.Count(); ++index) {
      const ListItem& row = *window.lvJunkFiles.Item(index);
      std::string line = row.Checked() ? "  +" : "  -";
      line += row.Caption().String() + "|" + row.SubItem(1).String() + "|" +
              row.SubItem(2).String() + "|" + row.SubItem(4).String().substr(0, 9) + "|" +
              row.SubItem(5).String();
      seen.push_back(line);
      EXPECT_NE(row.SubItem(3), row.SubItem(4));
    }
  }
  void Plant(const std::string& file, DWORD attributes, std::string_view contents) {
    pc.MakeFile(file, contents);
    const UniqueFile made(
        CreateFileA(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    const FILETIME day{0, 0x01C70000};  // in November 2006
    EXPECT_TRUE(SetFileTime(made.Get(), nullptr, nullptr, &day));
    SetFileAttributesA(file.c_str(), attributes);
  }

  Lines seen;
};

TEST(JunkScan, ASessionOnDrivesOfItsOwn) {
  if (!TestPc::CanFault()) GTEST_SKIP() << "the drive has files of its own";
  Session on;
  frmMain& window = on.window;
  for (const char drive : {'D', 'E', 'F'}) on.pc.SetDrive(drive, "fixed");
  on.Plant("D:\\top.tmp", FILE_ATTRIBUTE_ARCHIVE, "12345");
  on.Plant("D:\\a\\~x.txt", FILE_ATTRIBUTE_HIDDEN, "1");
  on.Plant("D:\\a\\~a.bak.exe", FILE_ATTRIBUTE_ARCHIVE, "1");
  on.Plant("D:\\a\\unticked.bak", FILE_ATTRIBUTE_ARCHIVE, "1");
  on.Plant("D:\\kept\\deep\\x.tmp", FILE_ATTRIBUTE_ARCHIVE, "1");
  on.Plant("E:\\unticked.tmp", FILE_ATTRIBUTE_ARCHIVE, "1");
  on.Plant("F:\\b\\y.tmp", FILE_ATTRIBUTE_ARCHIVE, "12");
  on.Plant("F:\\b\\z.tmp", FILE_ATTRIBUTE_ARCHIVE, "123");
  window.lvExcludeFolders.Add({}, "\\KEPT");
  window.lvFileTypes.Item(3)->SetChecked(false);
  on.Watch();
  on.Do("no drive", [&] {
    window.cmdCleanJunk.Click();
    window.cmdJunkScan.Click();
  });
  for (const int drive : {2, 4}) window.tvDrives.UserCheck(*window.tvDrives.Node(drive), true);
  window.lvJunkFiles.Add({}, "left from the scan before");
  window.StopRequested = true;
  on.Do("D and F", [&] { window.cmdJunkScan.Click(); });
  on.Do("sorted by size", [&] { window.lvJunkFiles.UserColumnClick(2); });
  window.lvJunkFiles.UserSelect(*window.lvJunkFiles.Item(1));
  window.lvJunkFiles.UserDoubleClick();
  EXPECT_EQ(on.pc.OpenedByShell(), Lines{"properties|D:\\a\\~x.txt|||5"});
  on.Do("none, twice", [&] {
    for (int times = 0; times < 2; ++times) window.cmdJunkFile(1).Click();
  });
  on.Do("remove the ticked", [&] { window.cmdJunkFile(3).Click(); });
  window.lvJunkFiles.UserCheck(*window.lvJunkFiles.Item(2), true);
  on.Do("invert", [&] { window.cmdJunkFile(2).Click(); });
  on.Do("remove the ticked", [&] { window.cmdJunkFile(3).Click(); });
  on.Do("all", [&] { window.cmdJunkFile(0).Click(); });
  on.Do("remove all", [&] { window.cmdJunkFile(4).Click(); });
  for (const int type : {1, 2}) window.lvFileTypes.Item(type)->SetChecked(false);
  on.Do("no type", [&] { window.cmdJunkScan.Click(); });
  EXPECT_EQ(AttributeLetters(0xFF), "HLRAS");
  window.lvJunkFiles.Add({}, "D:\\gone");
  int left = 0;
  window.lblOptions(3).Clicked.Bind([&left] { ++left; });
  window.cmdJunkFile(5).Click();
  EXPECT_EQ(left, 1);
  EXPECT_EQ(window.lvJunkFiles.Count(), 0);
  EXPECT_EQ(window.picJunkScan.Place().left, 10000);
  for (const Lines& lines : {on.pc.Recycled(), on.front_end.messages(), {Stored("Drives")}}) {
    on.seen.insert(on.seen.end(), lines.begin(), lines.end());
  }
  EXPECT_EQ(on.front_end.icons(), std::vector{MessageIcon::kNone});
  ExpectLinesOf("junk/expected_session.txt", on.seen);
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

}  // namespace
}  // namespace tidemark
