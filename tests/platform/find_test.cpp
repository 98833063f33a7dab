#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/unique_handle.h"
#include "platform/winapi.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

// The names that a search gives, in its order; of a search that does not start, its last error.
std::vector<std::string> Found(const std::string& pattern) {
  WIN32_FIND_DATAA found{};
  const UniqueSearch search(FindFirstFileA(pattern.c_str(), &found));
  if (!search) return {"error " + std::to_string(GetLastError())};
  std::vector<std::string> names;
  do {
    names.emplace_back(&found.cFileName[0]);
  } while (FindNextFileA(search.Get(), &found) != FALSE);
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
      {folder + "/*.*", all},
      {folder + "\\x\\..\\*", all},
      {"..\\FIND\\*", all},
      {folder + "\\*.tmp", {"A.TMP", "b.tmp", "Sub.tmp", "_c.tmp", "\u00E4.tmp"}},
      {folder + "\\*.tmp ", {"A.TMP", "b.tmp", "Sub.tmp", "_c.tmp", "\u00E4.tmp"}},
      {folder + "\\?.t??", {"A.TMP", "b.tmp", "\u00E4.tmp"}},
      {folder + "\\\u00C4.*", {"\u00E4.tmp"}},
      {folder + "\\a*", {"A.TMP", "ab.txt"}},
      {folder + "\\AB.TXT", {"ab.txt"}},
      {folder + "\\sub.tmp", {"Sub.tmp"}},
      {folder + "\\Sub.tmp\\.", {"Sub.tmp"}},
      {folder + "\\Sub.tmp\\*", {".", ".."}},
      {folder, {"Find"}},
      {folder + "\\*.zip", {"error 2"}},
      {folder + "\\none", {"error 2"}},
      {folder + "\\", {"error 2"}},
      {"C:\\", {"error 2"}},
      {folder + "\\none\\*", {"error 3"}},
      {folder + "\\none\\none", {"error 3"}},
      {"", {"error 3"}},
      {folder + "\\*\\x", {"error 123"}},
      {folder + '\\' + std::string(300, '?'), {"error 206"}},
      {"Q:\\*", {"error 3"}},
  };
  for (const auto& [pattern, names] : kCases) EXPECT_EQ(Found(pattern), names) << pattern;
  const Names root = Found("C:\\*");
  EXPECT_NE(root.front(), ".");
  EXPECT_NE(std::find(root.begin(), root.end(), pc.folder().substr(3)), root.end());
}

TEST(FileSearch, TellsWhatAFileIs) {
  TestPc pc;
  const std::string file = pc.folder() + "\\size.txt";
  pc.MakeFile(file, "12345");
  SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  WIN32_FIND_DATAA found{};
  { const UniqueSearch search(FindFirstFileA(file.c_str(), &found)); }
  WIN32_FILE_ATTRIBUTE_DATA looked{};
  ASSERT_TRUE(GetFileAttributesExA(file.c_str(), GetFileExInfoStandard, &looked));
  for (const DWORD attributes : {found.dwFileAttributes, looked.dwFileAttributes}) {
    EXPECT_EQ(attributes, GetFileAttributesA(file.c_str()));
  }
  EXPECT_EQ(found.nFileSizeLow, 5U);
  EXPECT_EQ(looked.nFileSizeLow, 5U);
  EXPECT_EQ(found.ftLastWriteTime.dwHighDateTime, looked.ftLastWriteTime.dwHighDateTime);
  EXPECT_GT(found.ftCreationTime.dwHighDateTime, 0x01D00000U);  // after the year 2014
  { const UniqueSearch search(FindFirstFileA((pc.folder() + "\\Prog*").c_str(), &found)); }
  EXPECT_EQ(found.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);
  SetLastError(0);
  EXPECT_FALSE(GetFileAttributesExA((file + "x").c_str(), GetFileExInfoStandard, &looked));
  EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST(FileSearch, ADeniedFolderAndAStaleSearchAnswerErrors) {
  if (!TestPc::CanFault()) GTEST_SKIP() << "faults can't be asked for on this ground";
  TestPc pc;
  const std::string folder = pc.folder() + "\\Denied";
  // Wine has its own answers to these.
  EXPECT_EQ(Found(pc.folder() + "\\a|b*"), Names{"error 123"});
  EXPECT_EQ(Found(pc.folder() + "\\a|b"), Names{"error 123"});
  pc.MakeFile(folder + "\\f.txt");
  EXPECT_EQ(Found(folder + "\\f.txt\\*"), Names{"error 267"});
  pc.DenyFile(folder);
  EXPECT_EQ(Found(folder + "\\*"), Names{"error 5"});
  EXPECT_EQ(Found(folder), Names{"Denied"});
  WIN32_FIND_DATAA found{};
  const HANDLE search = FindFirstFileA("C:\\*", &found);
  ASSERT_TRUE(FindClose(search));
  EXPECT_FALSE(FindClose(search));
  EXPECT_FALSE(FindNextFileA(search, &found));
  EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
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
      {"noext", "*.txt;*.*", false},
      {"b.bak", "*.tmp;  *.bak", true},
      {"b.bak", "*.tmp, *.bak", false},
      {"a.tmp", " *.tmp", true},
      {"a.tmp", "*.tmp ", false},
      {"a.tmp ", "*.tmp ", true},
      {"a", "", false},
      {"", "", false},
      {"", "*", true},
      {"a", ";", false},
      {"a", ";a", true},
      {"abc", "a?c", true},
      {"ac", "a?c", false},
      {"a.b.tmp", "*.?.tmp", true},
      {"aab", "*ab", true},
      {"a*", "a*", true},
      {"chklist.ms", "CHKLIST.*", true},
      {"chklist", "chklist.*", false},
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
