#include <gtest/gtest.h>

#include <string>

#include "platform/file_system_object.h"
#include "platform/unique_handle.h"
#include "platform/winapi.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

// The last error of a call that fails; 0 when it does not.
template <class Call>
DWORD ErrorOf(Call call) {
  SetLastError(0);
  return call() ? 0 : GetLastError();
}

DWORD LookError(const std::string& path) {
  return ErrorOf([&] { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; });
}

UniqueFile Open(const std::string& path, DWORD access, DWORD share, DWORD disposition) {
  return UniqueFile(CreateFileA(path.c_str(), access, share, nullptr, disposition,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
}

DWORD OpenError(const std::string& path, DWORD access, DWORD share, DWORD disposition) {
  return ErrorOf([&] { return static_cast<bool>(Open(path, access, share, disposition)); });
}

TEST(Files, PathsAreReadAsThePlatformReadsThem) {
  TestPc pc;
  pc.MakeFile(pc.folder() + "\\Sub Folder\\File.txt");
  pc.MakeFile(pc.folder() + "\\\u00C4pfel\\\u0416.txt");
  const std::string inner = pc.folder().substr(2);
  const std::string kFound[] = {
      pc.folder() + "\\SUB FOLDER\\file.TXT",
      pc.folder() + "\\x\\..\\.\\sub folder\\File.txt. .",
      pc.folder() + ".\\Sub Folder.\\File.txt",
      "C:\\.." + inner + "\\Sub Folder\\File.txt",
      inner + "\\Sub Folder\\File.txt",
      "..\\Sub Folder\\File.txt",
      "C:..\\Sub Folder\\File.txt",
      pc.folder() + "\\\u00E4PFEL\\\u0436.TXT",
  };
  for (const std::string& path : kFound) {
    EXPECT_EQ(GetFileAttributesA(path.c_str()), FILE_ATTRIBUTE_ARCHIVE) << path;
  }
  for (const std::string& path : {std::string("C:\\"), std::string("C:"), std::string("."),
                                  std::string("\\"), pc.folder() + "\\", pc.folder() + "\\..."}) {
    EXPECT_EQ(GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_DIRECTORY, FILE_ATTRIBUTE_DIRECTORY)
        << path;
  }
}

TEST(Files, WhatIsNotThereHasItsReason) {
  TestPc pc;
  const std::string folder = pc.folder();
  pc.MakeFile(folder + "\\File.txt");
  const struct {
    std::string path;
    DWORD error;
  } kCases[] = {
      {"", ERROR_PATH_NOT_FOUND},
      {folder + "\\none", ERROR_FILE_NOT_FOUND},
      {folder + "\\File.txt,0", ERROR_FILE_NOT_FOUND},
      {folder + "\\none\\x", ERROR_PATH_NOT_FOUND},
      {folder + "\\File.txt\\x", ERROR_PATH_NOT_FOUND},
      {folder + " \\File.txt", ERROR_PATH_NOT_FOUND},
      {"%SystemRoot%\\x", ERROR_PATH_NOT_FOUND},
      {folder + "\\a*b", ERROR_INVALID_NAME},
      {folder + "\\a\x01", ERROR_INVALID_NAME},
      {'"' + folder + "\\File.txt\"", ERROR_INVALID_NAME},
      {folder + '\\' + std::string(300, 'a'), ERROR_FILENAME_EXCED_RANGE},
  };
  for (const auto& [path, error] : kCases) EXPECT_EQ(LookError(path), error) << path;
  for (const std::string& path : {std::string("Q:\\x"), std::string("\\\\nohost\\share\\x"),
                                  std::string(100'000, 'x'), folder + "\\File.txt\\"}) {
    EXPECT_NE(LookError(path), 0U) << path;
  }
}

TEST(Files, ReadOnlyFilesCantBeChangedUntilTheyAreNoLongerThat) {
  TestPc pc;
  const std::string file = pc.folder() + "\\ro.txt";
  const std::string copy = pc.folder() + "\\copy.txt";
  pc.MakeFile(file, "kept");
  ASSERT_TRUE(SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN));
  ASSERT_TRUE(CopyFileA(file.c_str(), copy.c_str(), FALSE));
  for (const std::string& path : {file, copy}) {
    EXPECT_EQ(GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(ErrorOf([&] { return DeleteFileA(path.c_str()); }), DWORD{ERROR_ACCESS_DENIED});
    // Wine asks its host, and there root may write such a file.
    if (TestPc::CanFault()) {
      EXPECT_EQ(OpenError(path, GENERIC_WRITE, 0, CREATE_ALWAYS), DWORD{ERROR_ACCESS_DENIED});
    }
    EXPECT_EQ(pc.ReadFile(path), "kept");
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(ErrorOf([&] { return DeleteFileA(path.c_str()); }), 0U);
    EXPECT_EQ(LookError(path), DWORD{ERROR_FILE_NOT_FOUND});
  }
}

TEST(Files, AFileIsMovedOverAnotherWithItsAttributes) {
  TestPc pc;
  const std::string from = pc.folder() + "\\from.txt";
  const std::string to = pc.folder() + "\\to.txt";
  const auto move = [&](DWORD flags) {
    return ErrorOf([&] { return MoveFileExA(from.c_str(), to.c_str(), flags); });
  };
  for (const bool existed : {false, true}) {
    pc.MakeFile(from, existed ? "new" : "old");
    ASSERT_TRUE(SetFileAttributesA(from.c_str(), FILE_ATTRIBUTE_READONLY));
    if (existed) {
      EXPECT_EQ(move(0), DWORD{ERROR_ALREADY_EXISTS});
      if (TestPc::CanFault()) {
        EXPECT_EQ(move(MOVEFILE_REPLACE_EXISTING), DWORD{ERROR_ACCESS_DENIED});
      }
      ASSERT_TRUE(SetFileAttributesA(to.c_str(), FILE_ATTRIBUTE_NORMAL));
    }
    EXPECT_EQ(move(MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH), 0U);
    EXPECT_EQ(pc.ReadFile(to), existed ? "new" : "old");
    EXPECT_NE(GetFileAttributesA(to.c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    EXPECT_FALSE(pc.FileExists(from));
  }
}

TEST(Files, OpenFilesAreShared) {
  TestPc pc;
  const std::string file = pc.folder() + "\\shared.txt";
  pc.MakeFile(file, "abc");
  {
    const UniqueFile reader = Open(file, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    ASSERT_TRUE(reader);
    EXPECT_EQ(OpenError(file, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING), 0U);
    EXPECT_EQ(OpenError(file, GENERIC_READ, 0, OPEN_EXISTING), DWORD{ERROR_SHARING_VIOLATION});
    EXPECT_EQ(OpenError(file, GENERIC_WRITE, 3, OPEN_EXISTING), DWORD{ERROR_SHARING_VIOLATION});
    EXPECT_EQ(ErrorOf([&] { return DeleteFileA(file.c_str()); }), DWORD{ERROR_SHARING_VIOLATION});
    DWORD count = 0;
    EXPECT_EQ(ErrorOf([&] { return WriteFile(reader.Get(), "x", 1, &count, nullptr); }),
              DWORD{ERROR_ACCESS_DENIED});
  }
  EXPECT_EQ(OpenError(file, GENERIC_WRITE, 0, OPEN_EXISTING), 0U);
}

TEST(Files, DispositionsMakeReplaceAndAppend) {
  TestPc pc;
  const std::string file = pc.folder() + "\\new.txt";
  EXPECT_EQ(OpenError(file, GENERIC_READ, 0, OPEN_EXISTING), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(OpenError(file, GENERIC_WRITE, 0, CREATE_NEW), 0U);
  EXPECT_EQ(OpenError(file, GENERIC_WRITE, 0, CREATE_NEW), DWORD{ERROR_FILE_EXISTS});
  FileSystemObject files;
  EXPECT_TRUE(files.WriteAll(file, "a longer one"));
  EXPECT_TRUE(files.WriteAll(file, "one"));
  EXPECT_TRUE(files.Append(file, "two"));
  EXPECT_EQ(files.ReadAll(file), "onetwo");
  EXPECT_EQ(OpenError(pc.folder(), GENERIC_READ, 3, OPEN_EXISTING), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(ErrorOf([&] { return CreateDirectoryA(pc.folder().c_str(), nullptr); }),
            DWORD{ERROR_ALREADY_EXISTS});
}

TEST(Files, TimesAreSetAndAnEmptyFolderIsRemoved) {
  TestPc pc;
  const std::string folder = pc.folder() + "\\times";
  const std::string file = folder + "\\file";
  pc.MakeFile(file);
  const FILETIME written{0x12345600, 0x01C70000};
  {
    const UniqueFile open = Open(file, GENERIC_WRITE, 0, OPEN_EXISTING);
    EXPECT_NE(SetFileTime(open.Get(), nullptr, nullptr, &written), FALSE);
    EXPECT_NE(FlushFileBuffers(open.Get()), FALSE);
  }
  WIN32_FILE_ATTRIBUTE_DATA data{};
  GetFileAttributesExA(file.c_str(), GetFileExInfoStandard, &data);
  EXPECT_EQ(data.ftLastWriteTime.dwLowDateTime, written.dwLowDateTime);
  EXPECT_EQ(data.ftLastWriteTime.dwHighDateTime, written.dwHighDateTime);
  const auto remove = [&folder] { return RemoveDirectoryA(folder.c_str()) != FALSE; };
  EXPECT_EQ(ErrorOf(remove), DWORD{ERROR_DIR_NOT_EMPTY});
  DeleteFileA(file.c_str());
  EXPECT_EQ(ErrorOf(remove), 0U);
  EXPECT_EQ(ErrorOf(remove), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST(FileSystemObject, GivesTheErrorsThatScriptsKnow) {
  using Fso = FileSystemObject;
  TestPc pc;
  Fso files;
  const std::string folder = pc.folder() + '\\';
  pc.MakeFile(folder + "f.txt", "text");
  EXPECT_EQ(files.GetFolder(folder), Fso::kNone);
  EXPECT_EQ(files.GetFolder(""), Fso::kInvalidCall);
  for (const std::string& none :
       {folder + "f.txt", folder + "none\\none", folder + "a*b", std::string("Q:\\none")}) {
    EXPECT_EQ(files.GetFolder(none), Fso::kPathNotFound) << none;
  }
  EXPECT_EQ(files.GetFolder("\\\\nohost\\share\\x"), Fso::kDeviceUnavailable) << "it may come back";
  EXPECT_TRUE(files.FileExists(folder + "F.TXT"));
  EXPECT_FALSE(files.FileExists(pc.folder()));
  EXPECT_EQ(files.CreateFolder(pc.folder()), Fso::kFileExists);
  EXPECT_EQ(files.CreateFolder(folder + "x\\y"), Fso::kPathNotFound);
  EXPECT_EQ(files.CreateFolder(folder + "x"), Fso::kNone);
  EXPECT_EQ(files.CopyFile(folder + "f.txt", folder + "x\\"), Fso::kNone);
  EXPECT_EQ(pc.ReadFile(folder + "x\\f.txt"), "text");
  EXPECT_EQ(files.CopyFile(folder + "f.txt", folder + "x"), Fso::kPermissionDenied);
  EXPECT_EQ(files.CopyFile(folder + "no", folder + "y"), Fso::kFileNotFound);

  SetFileAttributesA((folder + "f.txt").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(files.DeleteFile(folder + "f.txt", false), Fso::kPermissionDenied);
  EXPECT_EQ(files.DeleteFile(folder + "f.txt", true), Fso::kNone);
  EXPECT_EQ(files.DeleteFile(folder + "f.txt", true), Fso::kFileNotFound);
  EXPECT_EQ(files.ReadAll(folder + "f.txt"), std::nullopt);
}

TEST(FileSystemObject, AFullOrDeniedDiskIsTold) {
  if (!TestPc::CanFault()) GTEST_SKIP() << "faults can't be asked for on this ground";
  TestPc pc;
  FileSystemObject files;
  pc.MakeFile(pc.folder() + "\\a\\f.txt", "12345");
  pc.FillDisk(2);
  EXPECT_TRUE(files.WriteAll(pc.folder() + "\\g.txt", "12"));
  EXPECT_FALSE(files.Append(pc.folder() + "\\g.txt", "3"));
  EXPECT_EQ(GetLastError(), DWORD{ERROR_DISK_FULL});
  EXPECT_EQ(pc.ReadFile(pc.folder() + "\\g.txt"), "12");
  pc.FillDisk(std::nullopt);
  EXPECT_TRUE(files.Append(pc.folder() + "\\g.txt", "3"));
  pc.DenyFile(pc.folder() + "\\A");
  EXPECT_EQ(files.GetFolder(pc.folder() + "\\a"), FileSystemObject::kPermissionDenied);
  EXPECT_EQ(LookError(pc.folder() + "\\a\\f.txt"), DWORD{ERROR_ACCESS_DENIED});
}

}  // namespace
}  // namespace tidemark
