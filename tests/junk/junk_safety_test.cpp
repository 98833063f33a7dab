// What a cleaning may never do: touch a file that was not listed and ticked.
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "junk/junk.h"
#include "platform/file_system_object.h"
#include "platform/folder_search.h"
#include "platform/unique_handle.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

// Attributes, size and time of every file, by path.
using Files = std::map<std::string, std::array<DWORD, 4>>;

void CollectFiles(const std::string& folder, Files& files) {
  FolderSearch found(folder + "\\*");
  ASSERT_TRUE(found) << folder;
  for (; found; found.Next()) {
    const std::string path = folder + '\\' + found->name;
    if ((found->attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
      WIN32_FILE_ATTRIBUTE_DATA details{};
      GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &details);
      const FILETIME& time = details.ftLastWriteTime;
      files[path] = {details.dwFileAttributes, details.nFileSizeLow, time.dwHighDateTime,
                     time.dwLowDateTime};
    } else if (found->name != "." && found->name != "..") {
      CollectFiles(path, files);
    }
  }
}

class JunkyPc : public WindowPc {
 public:
  JunkyPc() {
    LoadFileTypes(window);
    LoadExcludeFolders(window);
    for (int row = 1; row <= window.lvFileTypes.Count(); ++row) {
      if (row > 1) window.SelectedFileTypes += ';';
      window.SelectedFileTypes.append(window.lvFileTypes.Item(row)->Caption().View());
    }
  }
  void Plant(const std::string& file, DWORD attributes = FILE_ATTRIBUTE_ARCHIVE) {
    FileSystemObject().WriteAll(file, file);
    if (attributes != FILE_ATTRIBUTE_ARCHIVE) SetFileAttributesA(file.c_str(), attributes);
  }
  Files AllFiles() {
    Files files;
    CollectFiles(pc.folder(), files);
    return files;
  }
  void Scan() {
    window.lvJunkFiles.Clear();
    ScanFolder(window, pc.folder());
  }
};

struct Kind {
  const char* name;
  bool junk;
  DWORD attributes = FILE_ATTRIBUTE_ARCHIVE;
};
constexpr std::array kKinds = std::to_array<Kind>({
    {"odd.---", true},
    {"odd.ab~", true},
    {"odd._mp", true},
    {"odd.~xyz", true},
    {"Letter.BAK", true},
    {"FILE0001.CHK", true},
    {"memory.dmp", true, FILE_ATTRIBUTE_HIDDEN},
    {"help.gid", true},
    {"setup.exe.old", true},
    {"save.syd", true},
    {"\xC3\x84nderung \xD0\xB6.tmp", true},
    {"~$letter.doc", true},
    {"01234567.nch", true},
    {"MSCREATE.DIR", true},
    {"a[1] + 100%,x.tmp", true},
    {"read only.tmp", false, FILE_ATTRIBUTE_READONLY},
    {"system.tmp", false, FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_HIDDEN},
    {"~setup.exe", false},
    {"~a.bak.exe", false},
    {"~lib.DLL", false},
    {"~a.co", false},
    {"back.bakery", false},
    {"x.tmp2", false},
    {"tmp", false},
    {"~none", false},
    {"1234567.nch", false},
    {"my mscreate.dir", false},
    {"\xC3\x84nderung \xD0\xB6.txt", false},
    {"letter.doc", false},
    {"old", false},
    {"program.com", false},
});

TEST(JunkSafety, NothingGoesButWhatIsListedAndTicked) {
  JunkyPc on;
  constexpr int kFolders = 40;
  std::set<std::string> junk;
  for (int number = 0; number < kFolders; ++number) {
    const bool kept = number % 7 == 0;
    const std::string folder = on.pc.folder() + (kept ? "\\Themes" : "\\data") + "\\f" +
                               std::to_string(number / 10) + "\\g" + std::to_string(number) + '\\';
    on.pc.MakeFolder(folder + "folder.tmp");
    for (const Kind& kind : kKinds) {
      on.Plant(folder + kind.name, kind.attributes);
      if (kind.junk && !kept) junk.insert(folder + kind.name);
    }
  }
  Files expected = on.AllFiles();
  const Files before = expected;
  EXPECT_GE(before.size(), 1200U);
  on.Scan();
  std::set<std::string> listed;
  for (int row = 1; row <= on.window.lvJunkFiles.Count(); ++row) {
    ListItem& item = *on.window.lvJunkFiles.Item(row);
    listed.insert(item.Caption().String());
    item.SetChecked(row % 11 == 0);
    if (item.Checked()) expected.erase(item.Caption().String());
  }
  EXPECT_EQ(listed, junk);
  cmdJunkFile_Click(on.window, 3);
  EXPECT_EQ(on.AllFiles(), expected);
  if (!TestPc::CanFault()) return;
  on.pc.RestoreRecycled();
  EXPECT_EQ(on.AllFiles(), before);
}

TEST(JunkSafety, AFileThatCanNotGoHoldsNoOtherUp) {
  JunkyPc on;
  const std::string folder = on.pc.folder() + "\\odd\\";
  const std::string deep = folder + std::string(120, 'd') + '\\' + std::string(120, 'e') + '\\' +
                           std::string(50, 'f') + '\\';
  on.pc.MakeDeepFile(deep + "deep.tmp");
  const std::vector<std::string> names = {
      "1.tmp",          "gone.tmp",      "open.tmp",
      "folder now.tmp", "read only.tmp", "\xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x90\x9A.tmp",
      "z.tmp"};
  on.pc.MakeFolder(folder);
  for (const std::string& name : names) on.Plant(folder + name);
  on.Plant(folder + "open.tmp.txt");
  on.Scan();
  EXPECT_EQ(on.window.lvJunkFiles.Count(), 7) << "what lies so deep has no row";
  FileSystemObject().DeleteFile(folder + "gone.tmp", false);
  FileSystemObject().DeleteFile(folder + "folder now.tmp", false);
  on.pc.MakeFolder(folder + "folder now.tmp");
  on.Plant(folder + "folder now.tmp\\inside.txt");
  SetFileAttributesA((folder + "read only.tmp").c_str(), FILE_ATTRIBUTE_READONLY);
  on.window.lvJunkFiles.Add({}, deep + "deep.tmp");
  {
    const UniqueFile open(CreateFileA((folder + "open.tmp").c_str(), GENERIC_READ, 0, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(open);
    cmdJunkFile_Click(on.window, 4);
  }
  EXPECT_EQ(on.window.lvJunkFiles.Count(), 0);
  EXPECT_EQ(on.pc.FileNames(folder), (std::vector<std::string>{"open.tmp", "open.tmp.txt"}));
  EXPECT_EQ(on.pc.FileNames(folder + "folder now.tmp"), std::vector<std::string>{"inside.txt"});
  EXPECT_TRUE(on.pc.DeepFileExists(deep + "deep.tmp"));
}

TEST(JunkSafety, AScanDuringARemovalIsNotRemoved) {
  JunkyPc on;
  for (int number = 0; number < 5; ++number) {
    on.Plant(on.pc.folder() + "\\" + std::to_string(number) + ".tmp");
  }
  on.Scan();
  on.front_end.When([&on] { return on.window.lvJunkFiles.Count() == 3; }, [&on] { on.Scan(); });
  cmdJunkFile_Click(on.window, 4);
  EXPECT_EQ(on.window.lvJunkFiles.Count(), 3);
  EXPECT_EQ(on.AllFiles().size(), 3U);
}

TEST(JunkSafety, WhatLiesInTheRecycleBinStaysThere) {
  if (!TestPc::CanFault()) GTEST_SKIP() << "the drive has a bin of its own";
  JunkyPc on;
  const std::string file = "C:\\$Recycle.Bin\\S-1-5\\$R0.tmp";
  on.pc.MakeFile(file);
  ScanFolder(on.window, "C:\\");
  EXPECT_EQ(on.window.lvJunkFiles.Count(), 0) << "what was cleaned is no junk again";
  on.window.lvJunkFiles.Add({}, file);
  cmdJunkFile_Click(on.window, 4);
  EXPECT_EQ(on.window.lvJunkFiles.Count(), 0);
  EXPECT_TRUE(on.pc.FileExists(file));
}

}  // namespace
}  // namespace tidemark
