#include "helpers/modShortcut.h"

#include <gtest/gtest.h>

#include <string>

#include "helpers/link_template.h"
#include "platform/winapi.h"
#include "tests/support/test_pc.h"
#include "toolkit/script_front_end.h"

namespace tidemark {
namespace {

constexpr auto kNo = AskBeforeReplacing::kNo;
constexpr auto kYes = AskBeforeReplacing::kYes;

const std::string kTemplate(kLinkTemplate.begin(), kLinkTemplate.end());

struct LinkPc : TestPc {
  std::string Path(const std::string& name) const { return folder() + "\\" + name; }
  ScriptFrontEnd front_end;
};

TEST(Shortcut, TheTemplateIsLaidDownAndAFileIsReplacedOnlyWithLeave) {
  LinkPc pc;
  const std::string file = pc.Path("a.lnk");
  EXPECT_TRUE(WriteLinkTemplate(pc.front_end, file, kYes));
  EXPECT_EQ(pc.ReadFile(file), kTemplate);
  EXPECT_EQ(pc.front_end.beeps(), 0) << "there was nothing to replace";

  pc.MakeFile(file, std::string(1000, 'o'));
  EXPECT_FALSE(WriteLinkTemplate(pc.front_end, file, kYes)) << "the answer is no";
  EXPECT_EQ(pc.ReadFile(file), std::string(1000, 'o'));
  EXPECT_EQ(pc.front_end.beeps(), 1);
  EXPECT_EQ(pc.front_end.messages(), std::vector<std::string>{"Tidemark: The link file: \"" + file +
                                                              "\" exists. Replace it?"});
  pc.front_end.AnswerYesNo(true);
  for (const auto ask : {kYes, kNo}) {
    pc.MakeFile(file, std::string(1000, 'o'));
    EXPECT_TRUE(WriteLinkTemplate(pc.front_end, file, ask));
    EXPECT_EQ(pc.ReadFile(file), kTemplate);
    EXPECT_EQ(pc.front_end.messages().size(), 2U) << "the second time without a question";
  }

  SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_FALSE(WriteLinkTemplate(pc.front_end, file, kNo));
  EXPECT_TRUE(pc.FileExists(file)) << "what can't be deleted can't be replaced";
  EXPECT_FALSE(WriteLinkTemplate(pc.front_end, pc.Path("missing\\a.lnk"), kNo));
}

TEST(Shortcut, ALinkThatWasWrittenReadsBack) {
  LinkPc pc;
  const NewShortcut shortcut{.target = "C:\\Gone\\a.exe", .arguments = "/x", .hot_key = "1603"};
  struct Case {
    const char* name;
    const char* file;  // what it becomes
    const char* link;  // the shell's name of it
  };
  for (const Case& test : {Case{"a", "a.lnk", "a"},
                           {"b.LNK", "b.LNK", "b"},
                           {"c.lnk.txt", "c.lnk.txt.lnk", "c.lnk.txt"},
                           {"walnk", "walnk", "walnk"}}) {
    std::string file = pc.Path(test.name);
    EXPECT_TRUE(WriteShortcut(pc.front_end, file, kYes, shortcut)) << test.name;
    EXPECT_EQ(file, pc.Path(test.file)) << "the caller's name is changed too";
    EXPECT_TRUE(pc.FileExists(file)) << test.name;
    Shortcut read;
    ReadShortcut(pc.Path(test.name), read);
    EXPECT_EQ(read.target, shortcut.target) << test.name;
    EXPECT_EQ(read.name, test.link);
    EXPECT_EQ(read.hot_key, "1603");
  }
  std::string file = pc.Path("plain");
  EXPECT_TRUE(WriteShortcut(pc.front_end, file, kYes, {.target = "C:\\b.exe"}));
  Shortcut read{.arguments = "old"};
  ReadShortcut(file, read);
  EXPECT_EQ(read.arguments, "");
  EXPECT_EQ(read.working_directory, "") << "the template's is overwritten";
  ReadShortcut(pc.Path("missing"), read);
  EXPECT_EQ(read.target, "C:\\b.exe") << "as it was";
}

TEST(Shortcut, NoHalfMadeLinkStaysBehind) {
  LinkPc pc;
  for (const char* const hot_key : {"Ctrl+C", "70000", "-2"}) {
    std::string file = pc.Path("bad");
    EXPECT_FALSE(WriteShortcut(pc.front_end, file, kNo, {.target = "C:\\", .hot_key = hot_key}));
    EXPECT_FALSE(pc.FileExists(pc.Path("bad.lnk"))) << hot_key;
  }
  std::string kept = pc.Path("kept");
  pc.MakeFile(kept + ".lnk", "old");
  EXPECT_FALSE(WriteShortcut(pc.front_end, kept, kYes, {.target = "C:\\"}));
  EXPECT_EQ(pc.ReadFile(kept), "old") << "the answer was no";
  if (pc.CanFault()) {
    pc.FillDisk(275);
    std::string full = pc.Path("full");
    EXPECT_FALSE(WriteShortcut(pc.front_end, full, kNo, {.target = "C:\\" + std::string(99, 'x')}));
    EXPECT_FALSE(pc.FileExists(full)) << "no link to the boot file";
  }
}

}  // namespace
}  // namespace tidemark
