#include "repair/undo_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/program_start.h"
#include "platform/unicode.h"
#include "registry/mdlRegistry.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

using namespace std::string_literals;

TEST(UndoFile, EncodesDataByItsType) {
  struct Case {
    const char* data;
    std::int32_t type;
    const char* encoded;
  };
  const std::vector<Case> cases = {
      {"2", 4, "dword:00000002"},
      {"-1", 4, "dword:FFFFFFFF"},
      {"1234", 4, "dword:000004D2"},
      {"", 4, ""},
      {"a\\b", 4, "a\\\\b"},
      {"0A 1F", 3, "hex:0A,1F"},
      {"", 3, "hex:"},
      {"", 1, "\"\""},
      {"C:\\x", 2, "\"C:\\\\x\""},
      {"say \"a\"", 7, "\"say \"a\"\""},
      {"9999999999", 4, "9999999999"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(EncodeUndoData(one.data, one.type), one.encoded) << one.data << " " << one.type;
  }
}

TEST(UndoFile, CopiesOfAnExportWhatComesBehindItsHeader) {
  const std::string text = "Header\r\n\r\n[K\xC3\xA4]\r\n\"a\"=\"b\"\r\n";
  EXPECT_EQ(KeyRecord("REGEDIT4\r\n\r\n[K]\r\n"), "[K]\r\n\r\n\r\n");
  EXPECT_EQ(KeyRecord("\xFF\xFE" + Utf16FromUtf8(text)), "[K\xE4]\r\n\"a\"=\"b\"\r\n\r\n");
  EXPECT_EQ(KeyRecord("no key\r\n"), "\r\n");
  EXPECT_EQ(KeyRecord(""), "");
  EXPECT_EQ(KeyRecord("\xFF\xFE"), "");
  EXPECT_EQ(KeyRecord("\xFF\xFE" + Utf16FromUtf8("[K]") + "x"), "[K]\r\n");
}

// The registry editor is another process, so these work on the PC's own registry.
struct EditorPc {
  EditorPc() : pc(TestPc::Registry::kLive), undo(pc.program_folder() + "\\backup\\undo.reg") {}
  TestPc pc;
  std::string undo;
};

TEST(UndoFile, AKeyComesBackThroughTheEditor) {
  EditorPc on;
  const std::string key = on.pc.LiveKey() + "\\Captured";
  on.pc.SetText(HKEY_CURRENT_USER, key, "", "default \"quoted\" C:\\x");
  on.pc.SetText(HKEY_CURRENT_USER, key + "\\Sub", "name \\ \xC3\xA9", "text");
  on.pc.SetDword(HKEY_CURRENT_USER, key + "\\Sub", "number", 77);
  SafeRegkey("HKEY_CURRENT_USER\\" + key, on.pc.program_folder(), on.undo);
  SafeReg("HKEY_CURRENT_USER\\" + key, "", "C:\\new", 1, on.undo);
  EXPECT_TRUE(on.pc.ReadFile(on.undo).starts_with("REGEDIT4\r\n\r\n\r\n[HKEY_CURRENT_USER\\"));
  ASSERT_EQ(SHDeleteKeyA(HKEY_CURRENT_USER, key.c_str()), ERROR_SUCCESS);

  ASSERT_TRUE(StartProgram("regedit /s \"" + on.undo + "\"", WindowStyle::kMinimizedFocus));
  Sleep(500);
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, key, ""), "C:\\new") << "the later record wins";
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, key + "\\Sub", "name \\ \xC3\xA9"), "text");
  EXPECT_EQ(RegDataText(GetRegData(HKEY_CURRENT_USER, key + "\\Sub", "number")), "77");
}

TEST(UndoFile, AHeaderThatDoesNotFitLeavesNoFile) {
  EditorPc on;
  if (!TestPc::CanFault()) GTEST_SKIP() << "the disk can't be filled on this ground";
  on.pc.MakeFolder(on.pc.program_folder() + "\\backup");
  on.pc.FillDisk(5);
  SafeReg("HKEY_CURRENT_USER\\Made", "a", "data", 1, on.undo);
  SafeRegkey("HKEY_CURRENT_USER\\Software", on.pc.program_folder(), on.undo);
  EXPECT_FALSE(on.pc.FileExists(on.undo));
  on.pc.FillDisk(std::nullopt);
  SafeReg("HKEY_CURRENT_USER\\Made", "b", "data", 1, on.undo);
  EXPECT_EQ(on.pc.ReadFile(on.undo),
            "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Made]\r\n\"b\"=\"data\"\r\n\r\n");
}

}  // namespace
}  // namespace tidemark
