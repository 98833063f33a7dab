#include "scan/results_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "scan/locations.h"
#include "scan/scan.h"
#include "tests/support/settings.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

struct ResultsPc : WindowPc {
  ResultsPc() {
    for (const char* name : {"a", "b", "c, \"d\" <e>"}) {
      pc.SetText(HKEY_CURRENT_USER, kRun, name, pc.folder() + "\\gone.exe");
    }
    pc.SetText(HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows\\HTML Help", "h", "C:\\gone");
  }
  void Scan(const char* tests) {
    Store("LocState", tests);
    LoadLocations(window);
    cmdScan_Click(window);
  }
  std::string Flags() const {
    std::string flags;
    for (const std::string& flag : Rows(window.lvInvalidLoc, {kSelected})) flags += flag;
    return flags;
  }
  std::string Note() const { return window.lblRepairNote.Caption().String(); }
};

constexpr const char* kAllTests = "1;1;1;1;1;1;1;1;1;1;1;1";

TEST(ResultsPage, TicksAllFindingsOfTheSelectedTestAtOnceAndCountsThem) {
  ResultsPc on;
  frmMain& window = on.window;
  on.Scan(kAllTests);
  EXPECT_EQ(on.Note(), "'Repair' writes an undo file to the Backups page, then deletes 4 entries.");
  const auto choose = [&](ListView& list, MenuItem& item) {
    on.front_end.ChooseFromMenu(item);
    list.UserContextMenu(nullptr);
    return on.Flags();
  };
  EXPECT_EQ(choose(window.lvProblems, window.mnuClearAll), "0001");
  EXPECT_EQ(on.Note(), "'Repair' writes an undo file to the Backups page, then deletes 1 entry.");
  window.lvProblems.UserCheck(*window.lvProblems.Item(2), true);
  EXPECT_EQ(choose(window.lvFound, window.mnuInvert), "1011");
  EXPECT_EQ(choose(window.lvProblems, window.mnuTickAll), "1111");

  window.lvProblems.UserSelectRows({1, 3}, 3);
  window.lvProblems.UserToggle(*window.lvProblems.Item(3));
  EXPECT_EQ(on.Flags(), "0101");
  const std::string row = "HKEY_CURRENT_USER\\" + std::string(kRun);
  const std::string data = on.pc.folder() + "\\gone.exe";
  EXPECT_EQ(window.txtProblem.Text(),
            row + "   Value: c, \"d\" <e>   Data: " + data + "   Reason: Invalid path");
  choose(window.lvProblems, window.mnuCopyRows);
  EXPECT_EQ(on.front_end.copied(), row + "\ta\t" + data + "\tInvalid path\t1\r\n" + row +
                                       "\tc, \"d\" <e>\t" + data + "\tInvalid path\t1\r\n");
}

TEST(ResultsPage, SavesAllFindingsForASpreadsheetOrAsAWebPage) {
  ResultsPc on;
  on.Scan(kAllTests);
  const auto saved_as = [&](const std::string& name) {
    on.front_end.AnswerInput(name);
    on.window.mnuSaveList.Click();
    return on.pc.ReadFile(name);
  };
  const std::string csv = saved_as(on.pc.folder() + "\\list.csv");
  EXPECT_TRUE(csv.starts_with("\xEF\xBB\xBF\"Diagnostic Test\",\"Invalid data location\","));
  EXPECT_NE(csv.find("\"Startup\",\"HKEY_CURRENT_USER\\" + std::string(kRun) +
                     "\",\"c, \"\"d\"\" <e>\",\"" + on.pc.folder() +
                     "\\gone.exe\",\"Invalid path\",\"1\",\"yes\"\r\n"),
            std::string::npos)
      << csv;
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 5);
  const std::string page = saved_as(on.pc.folder() + "\\list.HTM");
  EXPECT_TRUE(page.starts_with("<!DOCTYPE html>"));
  EXPECT_NE(page.find("<td>c, \"d\" &lt;e&gt;</td>"), std::string::npos);
  EXPECT_TRUE(on.front_end.icons().empty());
  saved_as(on.pc.folder() + "\\none\\list.csv");
  EXPECT_EQ(on.front_end.icons(), std::vector{MessageIcon::kExclamation});
}

TEST(ResultsPage, SaysThatNothingWasFoundInThePlaceOfTheLists) {
  ResultsPc on;
  on.Scan(kAllTests);
  EXPECT_TRUE(on.window.lvFound.Visible());
  for (const auto& [tests, title, text] :
       {std::tuple{"1;0;0;0;0;0;0;0;0;0;0;0", "Problems Found : 0", "No problems found."},
        {"0;0;0;0;0;0;0;0;0;0;0;0", "", "Nothing was scanned: no diagnostic test is selected."}}) {
    on.Scan(tests);
    EXPECT_EQ(on.window.lblFound.Caption(), title);
    EXPECT_EQ(on.window.lblNothingFound.Caption(), text);
    EXPECT_TRUE(on.window.lblNothingFound.Visible());
    EXPECT_FALSE(on.window.lvFound.Visible() || on.window.lvProblems.Visible());
  }
}

}  // namespace
}  // namespace tidemark
