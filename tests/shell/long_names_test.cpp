// Files whose names take more bytes in UTF-8 than the platform's own search has room for, among
// others: they are found, the others behind them too, and they go where they are meant to go.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "helpers/modShortcut.h"
#include "helpers/system_helpers.h"
#include "junk/junk.h"
#include "platform/file_system_object.h"
#include "shortcuts/shortcuts.h"
#include "tests/support/special_folders.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

using Lines = std::vector<std::string>;

class LongNames : public testing::Test {
 protected:
  void SetUp() override {
    UseOwnSpecialFolders(on.pc);
    // Most hosts have 255 bytes for a name; where that is too few for such a name the longest do.
    const auto letters = [](int count) {
      std::string text;
      while (count-- > 0) text += "\u00E4";
      return text;
    };
    const bool room = FileSystemObject().WriteAll(on.pc.folder() + "\\" + letters(130), "x");
    ASSERT_TRUE(room || std::getenv("TIDEMARK_LONG_NAMES") == nullptr);
    // A recycle bin that holds the name from the last run would need a longer one.
    const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(
                         std::chrono::system_clock::now().time_since_epoch())
                         .count();
    name = letters(room ? 126 : 116) + std::to_string(100'000'000 + now % 100'000'000).substr(1);
  }
  // The names with the long one among them, whatever the order of the search.
  Lines All(const std::string& extension) const {
    return {"1" + extension, name + extension, "\u00E5" + extension, "\u00F6" + extension};
  }

  WindowPc on;
  std::string name;
};

TEST_F(LongNames, AreJunkAndGoToTheRecycleBin) {
  const std::string folder = on.pc.folder() + "\\Junk";
  Lines paths;
  for (const std::string& file : All(".tmp")) {
    on.pc.MakeFile(paths.emplace_back(folder + '\\' + file));
  }
  on.window.SelectedFileTypes = "*.tmp";
  ScanFolder(on.window, folder);
  EXPECT_EQ(WindowPc::Rows(on.window.lvJunkFiles, {0}), paths);
  cmdJunkFile_Click(on.window, 3);
  EXPECT_EQ(on.pc.FileNames(folder), Lines{});
  EXPECT_EQ(on.pc.Recycled(), TestPc::CanFault() ? paths : Lines{});
}

TEST_F(LongNames, AreLinksOfAStartMenu) {
  const std::string folder = GetSpecialFolderPath(CSIDL_STARTMENU);
  on.pc.MakeFolder(folder);
  Lines paths;
  for (const std::string& file : All(".lnk")) {
    std::string path = folder + '\\' + file;
    EXPECT_TRUE(WriteShortcut(on.front_end, path, AskBeforeReplacing::kNo, {.target = "C:\\gone"}));
    paths.push_back(path);
  }
  on.window.CurrentLocation = "SHORTCUTS";
  on.window.lvScan.Add("SHORTCUTS", "Shortcuts");
  ShortCuts(on.window);
  EXPECT_EQ(WindowPc::Rows(on.window.lvInvalidLoc, {0}), paths);
  on.window.cmdFix.Click();
  EXPECT_EQ(on.pc.FileNames(folder), Lines{});
  for (const std::string& file : All(".lnk")) {
    EXPECT_TRUE(on.pc.FileExists(on.pc.program_folder() + "\\backup\\" + file)) << file;
  }
}

TEST_F(LongNames, AreStartupFilesThatCanBeSwitchedOffAndOn) {
  const std::string live = GetSpecialFolderPath(CSIDL_STARTUP);
  const std::string store = on.pc.program_folder() + "\\Startup Folder\\Current User";
  on.pc.MakeFolder(store);
  for (const std::string& file : All(".reg")) on.pc.MakeFile(live + '\\' + file);
  on.window.loadPrograms();
  EXPECT_EQ(WindowPc::Rows(on.window.lvPrograms, {0}), All(".reg"));
  for (const auto& [ticked, folder] : {std::pair{false, store}, {true, live}}) {
    for (int row = 1; row <= on.window.lvPrograms.Count(); ++row) {
      on.window.lvPrograms.UserCheck(*on.window.lvPrograms.Item(row), ticked);
    }
    EXPECT_EQ(on.pc.FileNames(folder).size(), 4U) << folder;
  }
}

}  // namespace
}  // namespace tidemark
