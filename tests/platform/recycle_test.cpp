#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/unique_handle.h"
#include "platform/winapi.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

constexpr WORD kQuietly = FOF_NOCONFIRMATION | FOF_SILENT;
constexpr WORD kRecycle = kQuietly | FOF_ALLOWUNDO | FOF_WANTMAPPINGHANDLE | FOF_MULTIDESTFILES;

// One path, or several with NULs between them.
int Delete(const std::string& paths, WORD flags = kRecycle) {
  const std::string from = paths + std::string(2, '\0');
  SHFILEOPSTRUCTA operation{};
  operation.wFunc = FO_DELETE;
  operation.pFrom = from.c_str();
  operation.fFlags = flags;
  const int answer = SHFileOperationA(&operation);
  SHFreeNameMappings(operation.hNameMappings);
  return answer;
}

TEST(RecycleBin, TakesFilesAndSaysWhyNot) {
  TestPc pc;
  const std::string folder = pc.folder() + "\\R";
  const std::string file = folder + "\\\u00C4 f.txt";
  const std::string read_only = folder + "\\ro.txt";
  const std::string longest = folder + '\\' + std::string(150, 'x') + '\\' + std::string(50, 'y');
  for (const std::string& path : {file, read_only, longest}) {
    pc.MakeFile(path);
    SetFileAttributesA(read_only.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Delete(path), 0) << path;
    EXPECT_FALSE(pc.FileExists(path)) << path;
  }
  EXPECT_EQ(Delete(file), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(Delete(folder + "\\none\\f.txt"), 0x7C);
  EXPECT_EQ(Delete(folder + "\\a|b"), ERROR_INVALID_NAME);
  pc.MakeFile(file);
  {
    const UniqueFile open(CreateFileA(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(Delete(file), ERROR_SHARING_VIOLATION);
  }
  EXPECT_EQ(Delete(file, kQuietly), 0);
  EXPECT_FALSE(pc.FileExists(file));
  pc.MakeFile(file);
  EXPECT_EQ(Delete(folder + "\\none" + '\0' + file), ERROR_FILE_NOT_FOUND);
  EXPECT_TRUE(pc.FileExists(file));
  pc.MakeFile(read_only);
  EXPECT_EQ(Delete(file + '\0' + read_only), 0);
  EXPECT_EQ(pc.FileNames(folder), std::vector<std::string>{});
  if (TestPc::CanFault()) {
    EXPECT_EQ(pc.Recycled(), (std::vector<std::string>{file, read_only, longest, file, read_only}));
  }
}

// The platform would take more than the hosted PC does.
TEST(RecycleBin, OnlyWhatIsNamedGoes) {
  if (!TestPc::CanFault()) GTEST_SKIP() << "the platform of this ground differs";
  TestPc pc;
  const std::string file = pc.folder() + "\\R\\f.txt";
  pc.MakeFile(file);
  for (const WORD flags : {kRecycle, kQuietly}) {
    EXPECT_EQ(Delete(pc.folder() + "\\R\\*", flags), ERROR_INVALID_NAME);
    EXPECT_EQ(Delete(pc.folder() + "\\R", flags), 0x78);
    EXPECT_EQ(Delete("C:\\", flags), 0x78);
    EXPECT_EQ(Delete(std::string(300, 'x'), flags), 0x79);
  }
  pc.DenyFile(file);
  EXPECT_EQ(Delete(file), 0x78);
  pc.AllowAll();
  EXPECT_TRUE(pc.FileExists(file));
  EXPECT_EQ(pc.Recycled(), std::vector<std::string>{});
}

}  // namespace
}  // namespace tidemark
