#include "platform/hosted/recycle_bin.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/hosted/file_store.h"
#include "platform/hosted/pc_settings.h"
#include "tests/support/temporary_folder.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

class RecycleBinTest : public testing::Test {
 public:
  RecycleBinTest() { fs::create_directories(root_ / "drives/C/Folder/Sub"); }

 protected:
  static void Put(const fs::path& path, const std::string& text) { std::ofstream(path) << text; }

  TemporaryFolder folder_;
  const fs::path& root_ = folder_.path();
  PcSettings settings_;
};

constexpr SYSTEMTIME kTime{2006, 11, 6, 4, 13, 5, 9, 0};

TEST_F(RecycleBinTest, GivesFilesBackAsTheyWere) {
  const std::string path = "C:\\Folder\\Sub\\File.txt";
  {
    FileStore files(root_, settings_);
    Put(root_ / "drives/C/Folder/Sub/file.TXT", "first");
    files.SetAttributes(path, FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
    RecycleBin bin(root_ / "recycled", files);
    ASSERT_EQ(bin.Throw(path, kTime), ERROR_SUCCESS);
    Put(root_ / "drives/C/Folder/Sub/File.txt", "second");
    ASSERT_EQ(bin.Throw("c:/folder/sub/file.txt", kTime), ERROR_SUCCESS);
  }
  fs::remove_all(root_ / "drives/C/Folder");
  Put(root_ / "recycled/3.info", "path=C:\\x\ndeleted=2006-11-04 13:05:09\nattributes=32\n");
  Put(root_ / "recycled/4.info", "path=C:\\x\ndeleted=never\nattributes=32\n");
  Put(root_ / "recycled/4", "no time");
  Put(root_ / "recycled/5", "no record");
  Put(root_ / "recycled/.info", "");

  FileStore files(root_, settings_);
  RecycleBin bin(root_ / "recycled", files);
  const std::vector<RecycleBin::Item> items = bin.List();
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[0].path, path);
  EXPECT_EQ(items[0].deleted.wHour, kTime.wHour);
  EXPECT_EQ(items[0].deleted.wYear, kTime.wYear);
  ASSERT_EQ(bin.Restore(0), ERROR_SUCCESS);
  DWORD attributes = 0;
  std::string bytes;
  EXPECT_EQ(files.GetAttributes(path, attributes), ERROR_SUCCESS);
  EXPECT_EQ(attributes, FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(files.ReadWhole(path, bytes), ERROR_SUCCESS);
  EXPECT_EQ(bytes, "first");
  EXPECT_EQ(bin.Restore(0), ERROR_FILE_EXISTS);
  EXPECT_EQ(bin.Restore(1), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(bin.List().size(), 1U);
}

TEST_F(RecycleBinTest, NoRecordLeadsOutOfThePc) {
  fs::create_directory(root_ / "recycled");
  for (const char* const path : {"C:\\..\\..\\x", "C:\\../../../x", "/x", "\\\\?\\C:\\x"}) {
    Put(root_ / "recycled/1", "bytes");
    Put(root_ / "recycled/1.info",
        std::string("path=") + path + "\ndeleted=2006-11-04 13:05:09\nattributes=32\n");
    FileStore files(root_, settings_);
    RecycleBin(root_ / "recycled", files).Restore(0);
    EXPECT_FALSE(fs::exists(root_ / "x")) << path;
    EXPECT_FALSE(fs::exists(root_.parent_path() / "x")) << path;
    EXPECT_FALSE(fs::exists(root_ / "drives/x")) << path;
    fs::remove(root_ / "drives/C/x");
  }
}

TEST_F(RecycleBinTest, ABinThatCantBeWrittenTakesNothing) {
  FileStore files(root_, settings_);
  Put(root_ / "drives/C/f.txt", "kept");
  Put(root_ / "recycled", "a file in the way");
  RecycleBin bin(root_ / "recycled", files);
  EXPECT_NE(bin.Throw("C:\\f.txt", kTime), ERROR_SUCCESS);
  EXPECT_TRUE(fs::exists(root_ / "drives/C/f.txt"));
  EXPECT_TRUE(bin.List().empty());
}

}  // namespace
}  // namespace tidemark::hosted
