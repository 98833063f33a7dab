#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/file_system_object.h"
#include "platform/winapi.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

using Fso = FileSystemObject;
using Names = std::vector<std::string>;

TEST(FileSystemObject, FoldersListWhatIsInThem) {
  TestPc pc;
  const std::string folder = pc.folder() + "\\List";
  for (const char* const path : {"\\b.txt", "\\A.txt", "\\sub2\\x", "\\Sub1\\y"}) {
    pc.MakeFile(folder + path);
  }
  SetFileAttributesA((folder + "\\b.txt").c_str(), FILE_ATTRIBUTE_HIDDEN);
  const Fso files;
  Fso::Folder listed;
  ASSERT_EQ(files.GetFolder(folder + "\\\\", listed), Fso::kNone);
  EXPECT_EQ(listed.Path(), folder);
  EXPECT_EQ(listed.Files(), (Names{"A.txt", "b.txt"}));
  EXPECT_EQ(listed.SubFolders(), (Names{"Sub1", "sub2"}));
  EXPECT_EQ(listed.PathOf("A.txt"), folder + "\\A.txt");
  EXPECT_EQ(files.GetFolder(folder + "\\none", listed), Fso::kPathNotFound);
  EXPECT_EQ(listed.Path(), folder);  // what fails changes nothing
  ASSERT_EQ(files.GetFolder("C:\\", listed), Fso::kNone);
  EXPECT_EQ(listed.PathOf("x"), "C:\\x");
  if (TestPc::CanFault()) {
    pc.DenyFile(folder);
    EXPECT_EQ(files.GetFolder(folder, listed), Fso::kPermissionDenied);
  }
}

TEST(FileSystemObject, FilesTellOfThemselves) {
  TestPc pc;
  const std::string path = pc.folder() + "\\a.exe.tmtest";
  pc.MakeFile(path, "12345");
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  const Fso files;
  Fso::File file;
  ASSERT_EQ(files.GetFile(path, file), Fso::kNone);
  EXPECT_EQ(file.Size(), 5U);
  EXPECT_EQ(file.Attributes().value_or(0) & ~FILE_ATTRIBUTE_ARCHIVE,
            FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  ASSERT_TRUE(file.DateCreated() && file.DateLastModified());
  EXPECT_GE(file.DateLastModified()->wYear, 2020);
  EXPECT_EQ(file.Delete(false), Fso::kPermissionDenied);
  EXPECT_EQ(file.Delete(true), Fso::kNone);
  EXPECT_EQ(file.Delete(true), Fso::kFileNotFound);
  EXPECT_FALSE(file.Size() || file.Attributes() || file.DateCreated() || file.DateLastModified());
  EXPECT_EQ(file.Type(), "");
  EXPECT_EQ(files.GetFile(path, file), Fso::kFileNotFound);
  EXPECT_EQ(files.GetFile(pc.folder(), file), Fso::kFileNotFound);
  EXPECT_EQ(files.GetFile("", file), Fso::kInvalidCall);
}

// Wine says "tmp-file", and reads the types of the live registry.
TEST(FileSystemObject, TypesAreTheRegistrys) {
  if (!TestPc::CanFault()) GTEST_SKIP() << "the platform of this ground differs";
  TestPc pc;
  pc.SetText(HKEY_CLASSES_ROOT, ".txt", "", "txtfile");
  pc.SetText(HKEY_CLASSES_ROOT, "txtfile", "", "Text Document");
  pc.SetText(HKEY_CLASSES_ROOT, ".bak", "", "gone");
  for (const auto& [name, type] : {std::pair{"a.TXT", "Text Document"},
                                   {"a.txt.bak", "BAK File"},
                                   {"~a.tmp", "TMP File"},
                                   {"a", "File"}}) {
    const std::string path = pc.folder() + '\\' + name;
    pc.MakeFile(path);
    Fso::File file;
    ASSERT_EQ(Fso().GetFile(path, file), Fso::kNone);
    EXPECT_EQ(file.Type(), type) << name;
  }
}

TEST(FileSystemObject, DrivesAreOfManyKinds) {
  TestPc pc;
  Fso::Drive drive;
  for (const char* const text : {"c", "C:", "c:\\"}) {
    ASSERT_EQ(Fso().GetDrive(text, drive), Fso::kNone) << text;
    EXPECT_EQ(drive.DriveLetter(), "C");
  }
  EXPECT_TRUE(drive.IsReady());
  EXPECT_EQ(Fso().GetDrive("C:\\x", drive), Fso::kInvalidCall);
  EXPECT_EQ(Fso().GetDrive("Q", drive), Fso::kDeviceUnavailable);
  if (!TestPc::CanFault()) GTEST_SKIP() << "drives can't be made on this ground";
  const struct {
    char letter;
    const char* description;
    const char* told;  // type, ready or not, label, share
  } kCases[] = {
      {'A', "removable not ready", "1 0 - "},
      {'C', "fixed label=System", "2 1 System "},
      {'D', "cdrom label=My Disc", "4 1 My Disc "},
      {'E', "cdrom not ready", "4 0 - "},
      {'N', "network label=Papers share=\\\\server\\docs", "3 1 Papers \\\\server\\docs"},
      {'O', "network", "3 1  "},
      {'R', "ramdisk", "5 1  "},
      {'X', "network error=53 label=Off share=\\\\server\\docs", "3 0 - \\\\server\\docs"},
  };
  std::string letters;
  for (const auto& [letter, description, told] : kCases) {
    pc.SetDrive(letter, description);
    letters += letter;
    ASSERT_EQ(Fso().GetDrive({&letter, 1}, drive), Fso::kNone);
    EXPECT_EQ(std::to_string(drive.DriveType()) + (drive.IsReady() ? " 1 " : " 0 ") +
                  drive.VolumeName().value_or("-") + ' ' + drive.ShareName(),
              told)
        << description;
  }
  std::string found;
  for (const Fso::Drive& one : Fso().Drives()) found += one.DriveLetter();
  EXPECT_EQ(found, letters);
  Fso::Folder folder;
  EXPECT_EQ(Fso().GetFolder("E:\\", folder), Fso::kDiskNotReady);
}

}  // namespace
}  // namespace tidemark
