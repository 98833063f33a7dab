#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/folder_search.h"
#include "platform/winapi.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

// The names that a search gives, in its order; of a search that does not start, its last error.
std::vector<std::string> Found(const std::string& pattern) {
  FolderSearch found(pattern);
  if (!found) return {"error " + std::to_string(GetLastError())};
  std::vector<std::string> names;
  for (; found; found.Next()) names.push_back(found->name);
  EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_MORE_FILES}) << pattern;
  return names;
}

using Names = std::vector<std::string>;

TEST(FileSearch, FindsTheNamesThatFitInTheOrderOfTheirCapitals) {
  TestPc pc;
  const std::string folder = pc.folder() + "\\Find";
  for (const char* const name : {"b.tmp", "A.TMP", "_c.tmp", "ab.txt", "noext", "\u00E4.tmp"}) {
    pc.MakeFile(folder + '\\' + name);
  }
  pc.MakeFolder(folder + "\\Sub.tmp");
  SetFileAttributesA((folder + "\\b.tmp").c_str(), FILE_ATTRIBUTE_HIDDEN);
  const Names all = {".",     "..",      "A.TMP",  "ab.txt",    "b.tmp",
                     "noext", "Sub.tmp", "_c.tmp", "\u00E4.tmp"};
  const struct {
    std::string pattern;
    Names names;
  } kCases[] = {
      {folder + "\\*", all},
      {folder + "\\*.*", all},
      {"..\\FIND\\*", all},
      {folder + "\\*.tmp", {"A.TMP", "b.tmp", "Sub.tmp", "_c.tmp", "\u00E4.tmp"}},
      {folder + "\\?.t??", {"A.TMP", "b.tmp", "\u00E4.tmp"}},
      {folder + "\\\u00C4.*", {"\u00E4.tmp"}},
      {folder + "\\a*", {"A.TMP", "ab.txt"}},
      {folder + "\\sub.tmp", {"Sub.tmp"}},
      {folder + "\\Sub.tmp\\*", {".", ".."}},
      {folder, {"Find"}},
      {folder + "\\none", {"error 2"}},
      {"C:\\", {"error 2"}},
      {folder + "\\none\\*", {"error 3"}},
      {"", {"error 3"}},
      {folder + "\\*\\x", {"error 123"}},
      {"Q:\\*", {"error 3"}},
  };
  for (const auto& [pattern, names] : kCases) EXPECT_EQ(Found(pattern), names) << pattern;
  const Names root = Found("C:\\*");
  EXPECT_NE(root.front(), ".");
  EXPECT_NE(std::find(root.begin(), root.end(), pc.folder().substr(3)), root.end());
}

TEST(FileSearch, ADeniedFolderAnswersErrors) {
  if (!TestPc::CanFault()) GTEST_SKIP() << "faults can't be asked for on this ground";
  TestPc pc;
  const std::string folder = pc.folder() + "\\Denied";
  pc.MakeFile(folder + "\\f.txt");
  pc.DenyFile(folder);
  EXPECT_EQ(Found(folder + "\\*"), Names{"error 5"});
  EXPECT_EQ(Found(folder), Names{"Denied"});
}

TEST(NamePatterns, HoldsANameAgainstAListOfPatterns) {
  const struct {
    const char* name;
    const char* patterns;
    bool fits;
  } kCases[] = {
      {"a.LNK", "*.lnk", true},
      {"a.lnk2", "*.lnk", false},
      {"noext", "*.*", true},
      {"~a", "~*.*", false},
      {"~a.b", "~*.*", true},
      {"b.bak", "*.tmp;  *.bak", true},
      {"b.bak", "*.tmp, *.bak", false},
      {"a.tmp", " *.tmp", true},
      {"a", ";a", true},
      {"abc", "a?c", true},
      {"aab", "*ab", true},
      {"chklist.ms", "CHKLIST.*", true},
      {"C:\\folder\\a.tmp", "*.tmp", true},
  };
  for (const auto& [name, patterns, fits] : kCases) {
    EXPECT_EQ(PathMatchSpecA(name, patterns) != FALSE, fits) << name << " in " << patterns;
  }
  // Wine takes a character of several bytes for several, and takes years over many stars.
  if (TestPc::CanFault()) {
    const std::string stars = "*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a";
    EXPECT_FALSE(PathMatchSpecA(std::string(200, 'a').c_str(), (stars + 'b').c_str()));
    EXPECT_TRUE(PathMatchSpecA("\u00E4x\u20AC", "\u00C4??"));
  }
}

}  // namespace
}  // namespace tidemark
