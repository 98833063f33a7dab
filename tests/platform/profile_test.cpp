#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "platform/winapi.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

// What a read gives, with "|" for each NUL of a list.
std::string Read(const std::string& file, const char* section, const char* key, DWORD size = 200,
                 const char* default_text = "none") {
  std::string text(300, '#');
  const DWORD count =
      GetPrivateProfileStringA(section, key, default_text, text.data(), size, file.c_str());
  if (size > 0) {
    EXPECT_EQ(text[count], '\0') << key;
  }
  EXPECT_EQ(text[std::max<DWORD>(size, count + 1)], '#') << key;
  text.resize(count);
  std::replace(text.begin(), text.end(), '\0', '|');
  return text;
}

TEST(ProfileFiles, ValuesAreReadAsThePlatformReadsThem) {
  TestPc pc;
  const std::string file = pc.folder() + "\\p.ini";
  pc.MakeFile(file,
              "[ First ] ; text\r\n ; com=3\r\nk2 = ' v ' \n\n noeq\r\nK2=second\r\nq=\"\r\n"
              "q2=\"a'\r\nq3=\"\"\r\nq4='x\"'\r\nz=a;b # c\r\n=\r\nempty=\r\n"
              "[a]b]\r\nk=5\r\n[FIRST]\r\nlate=1\r\n[open\r\nafter=1");
  const struct {
    const char* section;
    const char* key;
    const char* value;
  } kCases[] = {
      {"First] ; text", "k2", "none"},
      {"first", " K2 ", " v "},
      {"First", "noeq", "none"},
      {"First", "q", "\""},
      {"First", "q2", "\"a'"},
      {"First", "q3", ""},
      {"First", "q4", "x\""},
      {" First ", "z", "a;b # c"},
      {"First", "empty", ""},
      {"First", "late", "none"},
      {"a]b", "k", "5"},
      {"open", "after", "none"},
  };
  for (const auto& [section, key, value] : kCases) {
    EXPECT_EQ(Read(file, section, key), value) << section << ' ' << key;
  }
  EXPECT_EQ(Read(file, nullptr, nullptr), "First|a]b|FIRST|");
  EXPECT_EQ(Read(file, "a]b", nullptr), "k|");
  EXPECT_EQ(Read(file, nullptr, nullptr, 6), "Firs");
  EXPECT_EQ(Read(file, "First", "z", 5), "a;b ");
  EXPECT_EQ(Read(file, "First", "x", 50, nullptr), "");
  EXPECT_EQ(Read(pc.folder() + "\\none.ini", "First", "z"), "none");
}

TEST(ProfileFiles, WritingChangesTheOneLine) {
  TestPc pc;
  const std::string file = pc.folder() + "\\p.ini";
  const std::string whole = "; head\r\n[A]\r\nk=1\r\n; mid\r\nk=2\r\n[B]\r\ny=3\r\n";
  const struct {
    const char* section;
    const char* key;
    const char* value;
    const char* contents;
  } kCases[] = {
      {"a", "K", "5", "; head\r\n[A]\r\nk=5\r\n; mid\r\nk=2\r\n[B]\r\ny=3\r\n"},
      {"A", "k", "", "; head\r\n[A]\r\nk=\r\n; mid\r\nk=2\r\n[B]\r\ny=3\r\n"},
      {"A", "new", "  v;'w'",
       "; head\r\n[A]\r\nk=1\r\n; mid\r\nk=2\r\nnew=v;'w'\r\n[B]\r\ny=3\r\n"},
      {"C", "c", "1", "; head\r\n[A]\r\nk=1\r\n; mid\r\nk=2\r\n[B]\r\ny=3\r\n[C]\r\nc=1\r\n"},
      {"A", "k", nullptr, "; head\r\n[A]\r\n; mid\r\nk=2\r\n[B]\r\ny=3\r\n"},
      {"A", nullptr, nullptr, "; head\r\n[B]\r\ny=3\r\n"},
  };
  for (const auto& [section, key, value, contents] : kCases) {
    pc.MakeFile(file, whole);
    EXPECT_TRUE(WritePrivateProfileStringA(section, key, value, file.c_str()));
    EXPECT_EQ(pc.ReadFile(file), contents) << section << ' ' << (key == nullptr ? "" : key);
  }
  const std::string made = pc.folder() + "\\made.ini";
  EXPECT_TRUE(WritePrivateProfileStringA("S", "k", "1", made.c_str()));
  EXPECT_EQ(pc.ReadFile(made), "[S]\r\nk=1\r\n");
  EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "1", (pc.folder() + "\\none\\p.ini").c_str()));
}

// Wine drops blank lines, reads 8-bit files in the process's code page, and asks its host about
// read-only files and full disks.
TEST(ProfileFiles, WhatIsNotChangedStaysToTheLastByte) {
  if (!TestPc::CanFault()) GTEST_SKIP() << "the platform of this ground differs";
  TestPc pc;
  const std::string file = pc.folder() + "\\p.ini";
  pc.MakeFile(file, "\n; \x81\xFF\n\n[S]\nk = 1\n\n\n[T]\x01\x7F\n=\t");
  SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_HIDDEN);
  EXPECT_TRUE(WritePrivateProfileStringA("S", "k", "\u00C4", file.c_str()));
  EXPECT_TRUE(WritePrivateProfileStringA("S", "j", "\u20AC", file.c_str()));
  const std::string before = pc.ReadFile(file);
  EXPECT_EQ(before, "\n; \x81\xFF\n\n[S]\nk=\xC4\nj=\x80\r\n\n\n[T]\x01\x7F\n=\t");
  EXPECT_NE(GetFileAttributesA(file.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
  pc.FillDisk();
  EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "longer", file.c_str()));
  EXPECT_EQ(GetLastError(), DWORD{ERROR_DISK_FULL});
  EXPECT_EQ(pc.ReadFile(file), before);
  SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY);
  for (const char* const text : {static_cast<const char*>(nullptr), "\u00C4"}) {
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", text, file.c_str())) << "it may stand there";
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
  }
}

// The live registry: the platform finds the mapping there.
TEST(ProfileFiles, TheWindowsSectionOfWinIniIsTheRegistrys) {
  TestPc pc(TestPc::Registry::kLive);
  const char* const key = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows";
  EXPECT_TRUE(WritePrivateProfileStringA("Windows", "TidemarkTest", "' a.exe", "win.ini"));
  EXPECT_EQ(pc.Text(HKEY_CURRENT_USER, key, "tidemarktest"), "' a.exe");
  EXPECT_EQ(Read("win.ini", "windows", "tidemarktest"), "' a.exe");
  EXPECT_EQ(Read(pc.folder() + "\\other.ini", "windows", "tidemarktest"), "none");
  EXPECT_TRUE(WritePrivateProfileStringA("windows", "tidemarktest", nullptr, "win.ini"));
  EXPECT_EQ(Read("win.ini", "windows", "tidemarktest"), "none");

  EXPECT_TRUE(WritePrivateProfileStringA("Tidemark test", "k", "'v'", "win.ini"));
  EXPECT_EQ(Read("C:\\Windows\\win.ini", "Tidemark test", "k"), "v");
  EXPECT_TRUE(WritePrivateProfileStringA("Tidemark test", nullptr, nullptr, "win.ini"));
}

}  // namespace
}  // namespace tidemark
