// What the program finds on a copy of the sample PC.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/hosted/clock.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/pc_settings.h"
#include "shell/main_window.h"
#include "shell/wiring.h"
#include "startup/startup.h"
#include "tests/support/exact_snapshot.h"
#include "tests/support/expected_text.h"
#include "tests/support/registry_snapshot.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

namespace fs = std::filesystem;

fs::path CopyOfSample(const TemporaryFolder& folder) {
  fs::copy(fs::path(TIDEMARK_SOURCE_FOLDER) / "sample", folder.path(), fs::copy_options::recursive);
  return folder.path();
}

struct SamplePc {
  SamplePc()
      : pc(CopyOfSample(folder)),
        window(front_end, Application{.folder = pc.settings().program_folder}) {
    pc.clock().SetLocalTime({2006, 11, 6, 4, 13, 5, 9, 0});
    BindHandlers(window);
    Main(window);
  }
  // The findings and the start-up programs, the columns between tabs.
  std::vector<std::string> Findings() const {
    return WindowPc::Rows(window.lvInvalidLoc,
                          {kTestCode, 0, kValueName, kValueData, kReason, kValueType}, '\t');
  }
  std::vector<std::string> Programs() const {
    return WindowPc::Rows(window.lvPrograms, {0, kCommand, kExists, kLocation, kEnabled, kKind},
                          '\t');
  }

  TemporaryFolder folder;
  hosted::HostedPc pc;
  ScriptFrontEnd front_end;
  frmMain window;
};

TEST(Sample, ShowsTheFindingsThatItsReadmeTells) {
  SamplePc on;
  ExpectLinesOf("sample/expected_rows.txt", on.Findings());
  EXPECT_EQ(on.window.lvFound.Count(), 12) << "one row for each diagnostic test";
}

TEST(Sample, ComesBackToTheLastBitFromARepair) {
  SamplePc on;
  const ExactSnapshot before = TakeExactSnapshot();
  const IgnoreList ignored = on.window.IgnoreList;
  const std::vector<std::string> found = on.Findings();
  on.window.cmdFix.Click();
  EXPECT_EQ(on.window.lblRepaired.Caption(),
            "Problems repaired : 110, undo file " + on.window.LvBackup.Item(1)->Caption().String() +
                ". 1 could not be deleted (no rights to 1). All of it can be restored from the "
                "Backups page.");
  EXPECT_LT(TakeExactSnapshot().size(), before.size());
  on.window.LvBackup.UserSelect(*on.window.LvBackup.Item(1));
  on.front_end.When([&on] { return on.window.mess_box && on.window.mess_box->cmdYes.Visible(); },
                    [&on] { on.window.mess_box->cmdYes.Click(); });
  on.window.cmdRestore.Click();
  EXPECT_TRUE(TakeExactSnapshot() == before);
  on.window.IgnoreList = ignored;  // without what the repair has put on it
  on.window.cmdScanNow.Click();
  on.window.cmdScan.Click();
  // A value that came back by itself stands behind the others of its key.
  const std::vector<std::string> again = on.Findings();
  EXPECT_TRUE(std::is_permutation(again.begin(), again.end(), found.begin(), found.end()));
}

TEST(Sample, ListsWhatStartsWithItFromAllSources) {
  SamplePc on;
  on.window.cmdMenuAdvanced.Click();
  on.window.lblOptions(2).Click();
  ExpectLinesOf("sample/expected_programs.txt", on.Programs());
  // What is switched off and on again is as it was, but for the two keys of win.ini.
  const std::vector<std::string> before = on.Programs();
  const RegistrySnapshot registry = TakeSnapshot();
  ListView& list = on.window.lvPrograms;
  for (const bool checked : {false, true}) {
    for (int row = 1; row <= list.Count(); ++row) {
      ListItem& program = *list.Item(row);
      const bool was_enabled =
          before[static_cast<std::size_t>(row - 1)].find("\tEnabled\t") != std::string::npos;
      if (program.SubItem(kLocation).String().starts_with("Win.ini")) continue;
      if (program.SubItem(kCommand).String().empty()) continue;
      list.UserCheck(program, checked == was_enabled);
    }
  }
  EXPECT_EQ(TakeSnapshot(), registry);
  on.window.lblOptions(2).Click();
  std::vector<std::string> after = on.Programs();
  EXPECT_TRUE(std::is_permutation(before.begin(), before.end(), after.begin(), after.end()));
  EXPECT_TRUE(on.front_end.messages().empty());
}

TEST(Sample, ListsTheJunkThatItsReadmeTells) {
  SamplePc on;
  on.window.cmdCleanJunk.Click();
  for (int drive = 1; drive <= on.window.tvDrives.Count(); ++drive) {
    on.window.tvDrives.UserCheck(*on.window.tvDrives.Node(drive), true);
  }
  on.window.cmdJunkScan.Click();
  ExpectLinesOf("sample/expected_junk.txt",
                WindowPc::Rows(on.window.lvJunkFiles, {0, 1, 2, 5}, '\t'));
}

}  // namespace
}  // namespace tidemark
