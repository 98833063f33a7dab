#include <gtest/gtest.h>

#include <string>

#include "platform/winapi.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

std::string Expand(const std::string& text) {
  char buffer[512] = "";
  const DWORD size = ExpandEnvironmentStringsA(text.c_str(), buffer, sizeof(buffer));
  EXPECT_EQ(size, std::string(buffer).size() + 1) << text;
  return buffer;
}

TEST(Environment, VariablesAreExpandedAndUnknownOnesStay) {
  TestPc pc;
  pc.SetVariable("TmOne", "1");
  pc.SetVariable("TmPath", "C:\\A B");
  const struct {
    const char* text;
    const char* expanded;
  } kCases[] = {
      {"", ""},
      {"plain", "plain"},
      {"%TMPATH%\\x", "C:\\A B\\x"},
      {"%tmone%%TmOne%", "11"},
      {"%TmNope%", "%TmNope%"},
      {"100%", "100%"},
      {"%%", "%%"},
      {"% TmOne%", "% TmOne%"},
      {"%TmOne", "%TmOne"},
  };
  for (const auto& [text, expanded] : kCases) EXPECT_EQ(Expand(text), expanded);
}

TEST(Environment, ASmallBufferLearnsTheNeededSize) {
  TestPc pc;
  pc.SetVariable("TmOne", "12345");
  EXPECT_EQ(ExpandEnvironmentStringsA("%TmOne%", nullptr, 0), 6U);
  char buffer[3];
  EXPECT_EQ(ExpandEnvironmentStringsA("%TmOne%", buffer, sizeof(buffer)), 6U);
  EXPECT_EQ(GetWindowsDirectoryA(buffer, sizeof(buffer)), 11U);
  char folder[MAX_PATH] = "";
  EXPECT_EQ(GetWindowsDirectoryA(folder, sizeof(folder)), 10U);
  EXPECT_STRCASEEQ(folder, "C:\\Windows");
}

TEST(Environment, SpecialFoldersAreMadeWhenAskedFor) {
  const TestPc pc;
  char path[MAX_PATH] = "x";
  for (const int number : {CSIDL_DESKTOP, CSIDL_STARTUP, CSIDL_STARTMENU, CSIDL_FONTS,
                           CSIDL_COMMON_STARTMENU, CSIDL_COMMON_STARTUP}) {
    ASSERT_EQ(SHGetFolderPathA(nullptr, number | CSIDL_FLAG_CREATE, nullptr, 0, path), S_OK);
    EXPECT_NE(GetFileAttributesA(path) & FILE_ATTRIBUTE_DIRECTORY, 0U) << path;
    EXPECT_EQ(SHGetFolderPathA(nullptr, number, nullptr, 0, path), S_OK) << number;
  }
  EXPECT_EQ(SHGetFolderPathA(nullptr, 999, nullptr, 0, path), static_cast<HRESULT>(0x80070057));
  EXPECT_STREQ(path, "");
}

}  // namespace
}  // namespace tidemark
