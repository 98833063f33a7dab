#include "platform/hosted/file_store.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/hosted/pc_settings.h"
#include "tests/support/temporary_folder.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

class FileStoreTest : public testing::Test {
 public:
  FileStoreTest() {
    fs::create_directories(drive() / "Folder");
    settings_.drives['E'] = PcDrive{DRIVE_CDROM, false, {}, {}};
  }

 protected:
  fs::path drive() const { return root_ / "drives/C"; }
  static void Put(const fs::path& path) { std::ofstream(path) << "x"; }
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
  fs::remove(drive() / "Folder/F.TXT");
  EXPECT_EQ(Look(files, "C:\\Folder\\f.txt"), ERROR_FILE_NOT_FOUND);
  Put(drive() / "Folder/f.txt");
  EXPECT_EQ(Look(files, "C:\\Folder\\f.txt"), ERROR_SUCCESS);
  fs::rename(drive() / "Folder", drive() / "FOLDER2");
  EXPECT_EQ(Look(files, "C:\\Folder\\f.txt"), ERROR_PATH_NOT_FOUND);
  EXPECT_EQ(Look(files, "C:\\folder2\\f.txt"), ERROR_SUCCESS);
  fs::create_directories(root_ / "drives/D/x");
  EXPECT_EQ(Look(files, "D:\\x"), ERROR_SUCCESS);
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
  fs::remove(drive() / "Folder");
  fs::create_directory_symlink(root_, drive() / "Folder");
  EXPECT_NE(files.Delete("C:\\Folder\\outside.txt"), ERROR_SUCCESS);
  EXPECT_NE(files.WriteWhole("C:\\Folder\\outside.txt", "y"), ERROR_SUCCESS);
  EXPECT_NE(files.WriteWhole("C:\\link.txt", "y"), ERROR_SUCCESS);
  EXPECT_EQ(fs::file_size(root_ / "outside.txt"), 1U);
}

TEST_F(FileStoreTest, DrivesAndAttributesComeFromTheSettings) {
  Put(drive() / "Folder/f.txt");
  settings_.attributes = {{"C:\\folder\\F.txt", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM}};
  settings_.denied_files = {"C:\\secret"};
  FileStore files(root_, settings_);
  DWORD attributes = 0;
  EXPECT_EQ(files.GetAttributes("C:\\Folder\\f.txt", attributes), ERROR_SUCCESS);
  EXPECT_EQ(attributes, FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  EXPECT_EQ(Look(files, "E:\\x"), ERROR_NOT_READY);
  EXPECT_EQ(Look(files, "Q:\\x"), ERROR_PATH_NOT_FOUND);
  EXPECT_EQ(Look(files, "\\\\server\\share"), ERROR_BAD_NETPATH);
  EXPECT_EQ(Look(files, "C:\\a:b"), ERROR_INVALID_NAME);
  EXPECT_EQ(Look(files, "C:\\Secret\\x"), ERROR_ACCESS_DENIED);
}

}  // namespace
}  // namespace tidemark::hosted
