#include "toolkit/file_list_box.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

std::vector<std::string> Listed(const FileListBox& box) {
  std::vector<std::string> names;
  for (int index = 0; index < box.ListCount(); ++index) names.push_back(box.List(index));
  return names;
}

using Names = std::vector<std::string>;

TEST(FileListBox, ListsTheFilesOfItsFolderThatFit) {
  TestPc pc;
  const std::string folder = pc.folder() + "\\Box";
  for (const char* const name : {"b.reg", "A.REG", "c.reg2", "d.txt", "hidden.reg", "sub\\x.reg"}) {
    pc.MakeFile(folder + '\\' + name);
  }
  SetFileAttributesA((folder + "\\hidden.reg").c_str(), FILE_ATTRIBUTE_HIDDEN);
  FileListBox box(nullptr, "File1");
  EXPECT_EQ(box.ListCount(), 0);
  ASSERT_TRUE(box.SetPath(folder));
  EXPECT_EQ(Listed(box), (Names{"A.REG", "b.reg", "c.reg2", "d.txt"}));
  box.SetPattern("*.reg");
  EXPECT_EQ(Listed(box), (Names{"A.REG", "b.reg"}));
  box.SetListIndex(1);
  EXPECT_FALSE(box.SetPath(folder + "\\none"));
  EXPECT_EQ(box.Path(), folder);
  EXPECT_EQ(box.ListIndex(), 1);
  DeleteFileA((folder + "\\b.reg").c_str());
  box.Refresh();
  EXPECT_EQ(Listed(box), Names{"A.REG"});
  EXPECT_EQ(box.ListIndex(), -1);
  ASSERT_TRUE(box.SetPath(folder + "\\sub\\"));
  EXPECT_EQ(Listed(box), Names{"x.reg"});
}

}  // namespace
}  // namespace tidemark
