#include "platform/hosted/file_store.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/hosted/folder_recycle_bin.h"
#include "platform/hosted/pc_settings.h"
#include "platform/hosted/short_names.h"
#include "tests/support/temporary_folder.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

class FileStoreTest : public testing::Test {
 public:
  FileStoreTest() { fs::create_directories(drive() / "Folder/Sub"); }

 protected:
  fs::path drive() const { return root_ / "drives/C"; }
  static void Put(const fs::path& path, const std::string& text = "x") {
    std::ofstream(path) << text;
  }
  static LONG Look(FileStore& files, std::string_view path) {
    DWORD attributes = 0;
    return files.GetAttributes(path, attributes);
  }

  TemporaryFolder folder_;
  const fs::path& root_ = folder_.path();
  PcSettings settings_;
};

TEST_F(FileStoreTest, SeesWhatOthersChangeOnTheHost) {
  FileStore files(root_, settings_);
  EXPECT_EQ(Look(files, "C:\\Folder\\f.txt"), ERROR_FILE_NOT_FOUND);
  Put(drive() / "Folder/F.TXT");
  EXPECT_EQ(Look(files, "C:\\Folder\\f.txt"), ERROR_SUCCESS);
  fs::rename(drive() / "Folder", drive() / "FOLDER2");
  EXPECT_EQ(Look(files, "C:\\Folder\\f.txt"), ERROR_PATH_NOT_FOUND);
  EXPECT_EQ(Look(files, "C:\\folder2\\f.txt"), ERROR_SUCCESS);
}

TEST_F(FileStoreTest, TheHostsOwnFilesAreOutOfReach) {
  Put(root_ / "outside.txt");
  Put(root_ / "drives/between.txt");
  fs::create_directory_symlink(root_, drive() / "link");
  fs::create_symlink(root_ / "outside.txt", drive() / "link.txt");
  fs::create_directory_symlink(root_, root_ / "drives/D");
  FileStore files(root_, settings_);
  for (const char* const path : {"C:\\..\\..\\outside.txt", "C:\\Folder\\..\\..\\between.txt",
                                 "C:\\link\\outside.txt", "C:\\link.txt", "D:\\outside.txt",
                                 "C:/../between.txt", "\\\\?\\C:\\Folder", "\\\\.\\C:\\Folder"}) {
    EXPECT_NE(Look(files, path), ERROR_SUCCESS) << path;
    EXPECT_NE(files.Delete(path), ERROR_SUCCESS) << path;
  }
  // Also when the link comes after its folder was looked into.
  EXPECT_EQ(Look(files, "C:\\Folder\\outside.txt"), ERROR_FILE_NOT_FOUND);
  fs::remove_all(drive() / "Folder");
  fs::create_directory_symlink(root_, drive() / "Folder");
  EXPECT_NE(files.Delete("C:\\Folder\\outside.txt"), ERROR_SUCCESS);
  EXPECT_NE(files.WriteWhole("C:\\Folder\\outside.txt", "y"), ERROR_SUCCESS);
  EXPECT_NE(files.WriteWhole("C:\\link.txt", "y"), ERROR_SUCCESS);
  EXPECT_EQ(fs::file_size(root_ / "outside.txt"), 1U);
}

constexpr SYSTEMTIME kTime{2006, 11, 6, 4, 13, 5, 9, 0};

TEST_F(FileStoreTest, TheBinGivesFilesBackAsTheyWere) {
  const std::string path = "C:\\Folder\\Sub\\File.txt";
  {
    FileStore files(root_, settings_);
    Put(root_ / "drives/C/Folder/Sub/file.TXT", "first");
    files.SetAttributes(path, FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
    FolderRecycleBin bin(root_ / "recycled", files);
    ASSERT_EQ(bin.Throw(path, kTime), ERROR_SUCCESS);
    Put(root_ / "drives/C/Folder/Sub/File.txt", "second");
    ASSERT_EQ(bin.Throw("c:/folder/sub/file.txt", kTime), ERROR_SUCCESS);
  }
  fs::remove_all(root_ / "drives/C/Folder");
  Put(root_ / "recycled/3.info", "path=C:\\x\ndeleted=2006-11-04 13:05:09\nattributes=32\n");

  FileStore files(root_, settings_);
  FolderRecycleBin bin(root_ / "recycled", files);
  const std::vector<RecycleBin::Item> items = bin.List();
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[0].path, path);
  EXPECT_EQ(items[0].deleted.wHour, kTime.wHour);
  ASSERT_EQ(bin.Restore(0), ERROR_SUCCESS);
  DWORD attributes = 0;
  std::string bytes;
  EXPECT_EQ(files.GetAttributes(path, attributes), ERROR_SUCCESS);
  EXPECT_EQ(attributes, FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(files.ReadWhole(path, bytes), ERROR_SUCCESS);
  EXPECT_EQ(bytes, "first");
  EXPECT_EQ(bin.Restore(0), ERROR_FILE_EXISTS);
  EXPECT_EQ(bin.Restore(1), ERROR_FILE_NOT_FOUND);
}

TEST_F(FileStoreTest, NoRecordLeadsOutOfThePc) {
  fs::create_directory(root_ / "recycled");
  for (const char* const path : {"C:\\..\\..\\x", "C:\\../../../x", "/x", "\\\\?\\C:\\x"}) {
    Put(root_ / "recycled/1", "bytes");
    Put(root_ / "recycled/1.info",
        std::string("path=") + path + "\ndeleted=2006-11-04 13:05:09\nattributes=32\n");
    FileStore files(root_, settings_);
    FolderRecycleBin(root_ / "recycled", files).Restore(0);
    EXPECT_FALSE(fs::exists(root_ / "x")) << path;
    EXPECT_FALSE(fs::exists(root_.parent_path() / "x")) << path;
    EXPECT_FALSE(fs::exists(root_ / "drives/x")) << path;
    fs::remove(root_ / "drives/C/x");
  }
}

TEST_F(FileStoreTest, OnADiskLinksLeadWhereTheyDoForWindowsAndShortNamesAreNotTakenForGone) {
  fs::create_directories(root_ / "disk/Users/anna");
  Put(root_ / "disk/Users/anna/a.txt");
  Put(root_ / "disk/Users/long name.txt");
  const fs::path users = root_ / "disk/Users";
  for (const auto& [name, target] :
       {std::pair<const char*, fs::path>{"disk/Documents and Settings", "/?\?/C:/USERS"},
        {"disk/byhost", users},
        {"disk/relative", "Users\\anna"},
        {"disk/outside", "/etc"},
        {"disk/circle", "circle"},
        {"disk/packed.exe", "unsupported reparse tag 0x80000017"}}) {
    fs::create_symlink(target, root_ / name);
  }
  FileStore files(DrivePlaces(std::map<char, fs::path>{{'C', root_ / "disk"}}), settings_);
  const auto status = [&](const char* path) {
    DWORD attributes = 0;
    return files.GetAttributes(path, attributes);
  };
  const std::pair<const char*, LONG> kPaths[] = {
      {"c:\\documents and settings\\anna\\A.TXT", ERROR_SUCCESS},
      {"C:\\byhost\\anna", ERROR_SUCCESS},
      {"C:\\relative\\a.txt", ERROR_SUCCESS},
      {"C:\\relative\\b.txt", ERROR_FILE_NOT_FOUND},
      {"C:\\outside\\passwd", ERROR_ACCESS_DENIED},
      {"C:\\circle\\x", ERROR_ACCESS_DENIED},
      {"C:\\packed.exe", ERROR_ACCESS_DENIED},
      {"C:\\Users\\LONGNA~1.TXT", ERROR_ACCESS_DENIED},
      {"C:\\PROGRA~1\\x", ERROR_ACCESS_DENIED},
      {"C:\\Users\\gone", ERROR_FILE_NOT_FOUND},
  };
  for (const auto& [path, expected] : kPaths) EXPECT_EQ(status(path), expected) << path;
  EXPECT_NE(files.Delete("C:\\byhost"), ERROR_SUCCESS);
  // Where the file system tells them they are names like others.
  short_name_of = [](const std::string& path) {
    return std::optional<std::string>(path.ends_with("long name.txt") ? "LONGNA~1.TXT" : "");
  };
  EXPECT_EQ(status("C:\\Users\\longna~1.txt"), ERROR_SUCCESS);
  EXPECT_EQ(status("C:\\Users\\LONGNA~2.TXT"), ERROR_FILE_NOT_FOUND);
  short_name_of = nullptr;
}

}  // namespace
}  // namespace tidemark::hosted
