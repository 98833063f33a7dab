// The registry editor as a program that is started: the same on a hosted PC and on Wine, where it
// is another process and sees the real registry.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/file_system_object.h"
#include "platform/program_start.h"
#include "platform/winapi.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

class Editor : public testing::Test {
 protected:
  Editor() { pc.MakeKey(HKEY_CURRENT_USER, pc.LiveKey()); }

  static bool Minimised(const std::string& command_line) {
    return StartProgram(command_line, WindowStyle::kMinimizedFocus);
  }

  std::string Exported(std::string_view key) {
    EXPECT_TRUE(Minimised("regedit  /e \"" + file + "\" \"" + std::string(key) + "\""));
    Sleep(300);
    std::string plain;  // without the upper halves of 16-bit text
    for (const char character : FileSystemObject().ReadAll(file).value_or("no file")) {
      if (character != '\0') plain += character;
    }
    return plain;
  }

  void Import(std::string_view script) {
    EXPECT_TRUE(FileSystemObject().WriteAll(file, script));
    EXPECT_TRUE(Minimised("REGEDIT.EXE /S \"" + file + "\""));
    Sleep(300);
  }

  std::string Value(const char* name) {
    const auto value = pc.Value(HKEY_CURRENT_USER, pc.LiveKey(), name);
    return value ? value->bytes : "none";
  }

  TestPc pc{TestPc::Registry::kLive};
  std::string full_key = "HKEY_CURRENT_USER\\" + pc.LiveKey();
  std::string file = pc.program_folder() + "\\editor test.reg";
};

using namespace std::string_literals;

TEST_F(Editor, ExportsAKeyAndWhatLiesBelow) {
  EXPECT_FALSE(Minimised("\"C:\\no such program.exe\""));
  pc.SetText(HKEY_CURRENT_USER, pc.LiveKey(), "path", "C:\\a \"b\"");
  pc.MakeKey(HKEY_CURRENT_USER, pc.LiveKey() + "\\sub");
  const std::string script = Exported(full_key);
  const std::string& key = full_key;
  EXPECT_NE(
      script.find("[" + key + "]\r\n\"path\"=\"C:\\\\a \\\"b\\\"\"\r\n\r\n[" + key + "\\sub]\r\n"),
      std::string::npos)
      << script;
}

TEST_F(Editor, LeavesTheFileAloneUnderAShortRootNameOrForAMissingKey) {
  for (const std::string& key : {"HKCU\\" + pc.LiveKey(), full_key + "\\No such key"}) {
    FileSystemObject().WriteAll(file, "the export before");
    EXPECT_EQ(Exported(key), "the export before") << key;
    DeleteFileA(file.c_str());
    EXPECT_EQ(Exported(key), "no file") << key;
  }
}

TEST_F(Editor, ImportsBothFormsAndPassesOverWhatItCanNotUnderstand) {
  Import("REGEDIT4\r\n\r\n[" + full_key +
         "]\r\n\"a\"=\"x\\\\y\"\r\nrubbish\r\n\"bad\"=\"C:\\dir\\\"\r\n\"worse\"=\"a\"b\"\r\n"
         "\"e\"=hex(2):25,41,\\\r\n  25,00\r\n\"n\"=dword:00000102\r\n\"cut\"=\"sho");
  EXPECT_EQ(Value("a"), "x\\y\0"s);
  EXPECT_EQ(Value("bad"), "none");
  EXPECT_EQ(Value("cut"), "none");
  EXPECT_EQ(Value("e"), "%A%\0"s);
  EXPECT_EQ(Value("n"), "\x02\x01\0\0"s);
  const std::string script = "Windows Registry Editor Version 5.00\r\n\r\n[" + full_key +
                             "]\r\n\"a\"=-\r\n\"w\"=hex(2):41,00,00,00\r\n";
  std::string wide = "\xFF\xFE";
  for (const char character : script) wide.append({character, '\0'});
  Import(wide);
  EXPECT_EQ(Value("a"), "none");
  EXPECT_EQ(Value("w"), "A\0"s);
  Import("REGEDIT4\r\n\r\n[-" + full_key + "]\r\n");
  EXPECT_EQ(Value("w"), "none");
}

}  // namespace
}  // namespace tidemark
