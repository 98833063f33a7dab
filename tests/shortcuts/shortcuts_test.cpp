#include "shortcuts/shortcuts.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "helpers/modShortcut.h"
#include "helpers/system_helpers.h"
#include "platform/letter_case.h"
#include "platform/link_format.h"
#include "tests/support/link_bytes.h"
#include "tests/support/special_folders.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

using Lines = std::vector<std::string>;

class ShortcutsPc : public WindowPc {
 public:
  ShortcutsPc() {
    UseOwnSpecialFolders(pc);
    common = GetSpecialFolderPath(CSIDL_COMMON_STARTMENU) + "\\";
    user = GetSpecialFolderPath(CSIDL_STARTMENU) + "\\";
    desktop = GetSpecialFolderPath(CSIDL_DESKTOP) + "\\";
    window.CurrentLocation = "SHORTCUTS";
    window.lvScan.Add("SHORTCUTS", "Shortcuts")->SetSubItem(2, "0");
  }

  void Link(std::string file, const std::string& target) {
    pc.MakeFolder(file.substr(0, file.rfind('\\')));
    EXPECT_TRUE(WriteShortcut(front_end, file, AskBeforeReplacing::kNo,
                              {.target = target, .arguments = "/gone"}));
  }
  Lines Findings() const { return Rows(window.lvInvalidLoc, {0, 1, 2, 3, 4, 5, 6}); }
  std::string Row(const std::string& file, const std::string& name) const {
    return file + '|' + name + '|' + gone + "|Target not valid||1|SHORTCUTS";
  }

  std::string gone = pc.folder() + "\\gone.exe";
  std::string common, user, desktop;
};

TEST(ShortCuts, ReportsLinksWhoseTargetIsGoneInAllThreePlaces) {
  ShortcutsPc on;
  on.pc.MakeFile(on.pc.folder() + "\\here.exe");
  on.Link(on.common + "Apps\\Deep\\a.LNK", on.gone);
  on.Link(on.common + "Apps\\file.lnk", on.pc.folder() + "\\here.exe");
  on.Link(on.common + "Apps\\folder.lnk", on.pc.folder());
  on.Link(on.common + "Apps\\nothing.lnk", "");
  on.pc.MakeFile(on.pc.folder() + "\\\xC3\xA4.exe");
  using namespace link_bytes;
  on.pc.MakeFile(on.common + "Apps\\8 bits.lnk",
                 Header(kHasLinkInfo) + LinkInfo(on.pc.folder() + "\\\xE4.exe", "", "") + Long(0));
  on.pc.MakeFile(on.common + "Apps\\half a character.lnk",
                 Header(kHasRelativePath | kIsWide) + Word(2) + "x\xD8" + Wide("x") + Long(0));
  on.Link(on.common + "My system volume\\x.lnk", on.gone);
  on.Link(on.common + "System Volume Information\\x.lnk", on.gone);
  on.Link(on.common + "z.lnk", on.gone);
  on.pc.MakeFile(on.common + "damaged.lnk", "no link");
  on.pc.MakeFile(on.common + "gone.lnk.txt", "no link");
  on.Link(on.user + "z.lnk", on.gone);
  on.Link(on.desktop + "Known.lnk", on.gone);
  on.Link(on.desktop + "remote.lnk", "\\\\tidemark-no-host\\share\\a.exe");
  on.window.IgnoreList.slots = {LowerCase("Known " + on.gone + " " + on.desktop), ""};
  ShortCuts(on.window);
  EXPECT_EQ(on.Findings(),
            (Lines{on.Row(on.common + "Apps\\Deep\\a.LNK", "a"), on.Row(on.common + "z.lnk", "z"),
                   on.Row(on.user + "z.lnk", "z")}))
      << "a server that does not answer may come back";
  EXPECT_EQ(on.window.ProblemCount, 3);
  EXPECT_EQ(on.window.lvScan.Item(1)->SubItem(2), "3") << "the ignored link is not counted";
}

TEST(ShortCuts, TellsWhereItIs) {
  ShortcutsPc on;
  on.Link(on.user + "Apps\\a.lnk", on.gone);
  on.pc.MakeFile(on.user + "Apps\\b.txt");
  on.pc.MakeFile(on.user + "c.txt");
  Lines texts;
  const auto look = [&] {  // at each yield
    const std::string text = on.window.lblstatus.Caption().String();
    if (texts.empty() || texts.back() != text) texts.push_back(text);
    return false;
  };
  on.front_end.When(look, [] {});
  std::string folder = on.user.substr(0, on.user.size() - 1);
  ScanShortCut(on.window, folder);
  EXPECT_EQ(folder, on.user) << "the caller's folder gets its backslash";
  EXPECT_EQ(texts,
            (Lines{"Scaning Folder: " + on.user + "\\", "Scaning Folder: " + on.user + "Apps\\\\",
                   "Scaning Folder:" + on.user + "Apps\\\\a.lnk",
                   "Scaning Folder:" + on.user + "\\Apps"}));
  EXPECT_EQ(on.window.pbarScan.Value(), 4) << "a folder and three files";
}

TEST(ShortCuts, AStopAtAnyYieldEndsTheWalk) {
  ShortcutsPc on;
  for (const char* const name : {"A\\B\\1", "A\\B\\2", "A\\3", "A\\4", "5", "6"}) {
    on.Link(on.user + name + ".lnk", on.gone);
  }
  // Yields and findings of a walk that is stopped at that yield; 0 is never.
  const auto walk = [&on](long stop) {
    on.window.lvInvalidLoc.Clear();
    on.window.StopRequested = false;
    const long begin = on.front_end.yields();
    if (stop > 0) on.front_end.AtYield(begin + stop, [&on] { on.window.StopRequested = true; });
    std::string folder = on.user;
    ScanShortCut(on.window, folder);
    return std::pair(on.front_end.yields() - begin, on.window.lvInvalidLoc.Count());
  };
  const auto [last_yield, all_findings] = walk(0);
  EXPECT_EQ(all_findings, 6);
  int findings = 0;
  constexpr long kSteps = 4 * 3;  // four on each of the three levels
  for (long stop = 1; stop <= last_yield; ++stop) {
    const auto [yields, found] = walk(stop);
    ASSERT_LE(yields, stop + kSteps) << stop;
    ASSERT_GE(found, findings) << stop;
    findings = found;
  }
  EXPECT_EQ(findings, all_findings);
}

TEST(ShortCuts, AFolderThatCannotBeListedEndsItsOwnLevelOnly) {
  ShortcutsPc on;
  if (!on.pc.CanFault()) GTEST_SKIP() << "access can't be denied on this ground";
  on.Link(on.user + "A\\1.lnk", on.gone);
  on.Link(on.user + "B\\2.lnk", on.gone);
  on.Link(on.user + "B\\3.lnk", on.gone);
  on.pc.DenyFile(on.user + "A");
  on.pc.DenyFile(on.user + "B\\2.lnk");
  ShortCuts(on.window);
  EXPECT_EQ(on.Findings(), Lines{on.Row(on.user + "B\\3.lnk", "3")});
}

}  // namespace
}  // namespace tidemark
