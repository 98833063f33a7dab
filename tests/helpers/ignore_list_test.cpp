#include "helpers/ignore_list.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

using Fields = std::vector<std::string>;

TEST(IgnoreList, HasTwentyEntriesWithNoFile) {
  TestPc pc;
  IgnoreList list;
  LoadIgnoreLst(list, pc.program_folder());
  for (const char* held :
       {"\\Software\\Microsoft OFFICE x", "outlook", "PowerPoint", "mstcp", "Kernel32.dll", "excel",
        "explorer.exe", "SystemRestore", "accessories", "{2559A1F0-21D7-11D4-BDAF-00C04F60B9F0}",
        "{4A7DED0A-AD25-11D0-98A8-0800361B1103}", "{4C892621-6757-4FE0-AD8C-A6301BE7FBA2}",
        "{513D916F-2A8E-4F51-AEAB-0CBC76FB1AF8}", "{5DB2625A-54DF-11D0-B6C4-0800091AA605}",
        "{5F327514-6C5E-4D60-8F16-D07FA08A78ED}", "{74246BFC-4C96-11D0-ABEF-0020AF6B0B7A}",
        "{35CEC8A3-2BE6-11D2-8773-92E220524153}", "{3DA165B6-CC41-11D2-BDC6-00C04F79EC6B}"}) {
    EXPECT_TRUE(IsInIngnoreList(list, held)) << held;
  }
  for (const char* other : {"{457F81DE-77B6-446B-B50F-02B92BECD406}", "word"}) {
    EXPECT_FALSE(IsInIngnoreList(list, other)) << other;
  }
  AddToSafeList(list, pc.program_folder(), "My Key");
  EXPECT_FALSE(IsInIngnoreList(list, "my key")) << "with no file nothing is added";
  EXPECT_FALSE(pc.FileExists(pc.program_folder() + "\\Ignorelst.ini"));
}

TEST(IgnoreList, TakesTheLinesOfItsFileInSystemCodePage) {
  TestPc pc;
  const std::string file = pc.program_folder() + "\\Ignorelst.ini";
  pc.MakeFile(file, "Gr\xFCn\r\n\r\n  one , two\r\n\"three, four\"\r\n");
  IgnoreList list;
  LoadIgnoreLst(list, pc.program_folder());
  const std::vector<std::pair<std::string, bool>> cases = {
      {"GR\xC3\x9CN", true},
      {"one", true},
      {"xTWOx", true},
      {"three, four", true},
      {"three", false},
      {"457F81DE-77B6-446B-B50F-02B92BECD406", false},  // the first line took its slot
  };
  for (const auto& [text, held] : cases) EXPECT_EQ(IsInIngnoreList(list, text), held) << text;

  AddToSafeList(list, pc.program_folder(), "CLSID\\{1},\xC3\xA9");
  AddToSafeList(list, pc.program_folder(), "   ");
  EXPECT_TRUE(IsInIngnoreList(list, "x clsid\\{1},\xC3\x89"));
  EXPECT_TRUE(pc.ReadFile(file).ends_with("four\"\r\nCLSID\\{1},\xE9\r\n"));
  LoadIgnoreLst(list, pc.program_folder());
  EXPECT_TRUE(IsInIngnoreList(list, "clsid\\{1}")) << "an entry with a comma comes back as two";
}

TEST(IgnoreList, KeepsWhatAnEditorHasMadeOfItsFile) {
  TestPc pc;
  const std::string file = pc.program_folder() + "\\Ignorelst.ini";
  pc.MakeFile(file,
              "\xEF\xBB\xBF"
              "first\r\nlast");
  IgnoreList list;
  LoadIgnoreLst(list, pc.program_folder());
  EXPECT_TRUE(IsInIngnoreList(list, "the first one")) << "the mark is no part of it";
  AddToSafeList(list, pc.program_folder(), "added");
  AddToSafeList(list, pc.program_folder(), "more");
  EXPECT_TRUE(pc.ReadFile(file).ends_with("first\r\nlast\r\nadded\r\nmore\r\n"));
  pc.MakeFile(file, "first\r\n\x1A never read");
  AddToSafeList(list, pc.program_folder(), "added");
  EXPECT_EQ(pc.ReadFile(file), "first\r\nadded\r\n\x1A never read");
}

TEST(IgnoreList, ReadsDelimitedFieldsOfAnyBytes) {
  const std::vector<std::pair<std::string, Fields>> cases = {
      {"", {}},
      {"a,b\r\nc\nd\re", {"a", "b", "c", "d", "e"}},
      {"  \"a, b\"  , c ", {"a, b", "c"}},
      {"\"open\r\nend", {"open\r\nend"}},
      {"\"a\"b", {"a", "b"}},
      {"a\x1A,b", {"a"}},
      {std::string("\0,\xFF", 3), {std::string("\0", 1), "\xFF"}},
  };
  for (const auto& [text, fields] : cases) EXPECT_EQ(ReadDelimitedFields(text), fields) << text;
}

}  // namespace
}  // namespace tidemark
