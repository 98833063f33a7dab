// How the window's pages look in the terminal, and how their controls are driven.
#include <gmock/gmock.h>

#include <algorithm>

#include "desktop/terminal/commands.h"
#include "desktop/terminal/display_text.h"
#include "desktop/terminal/page.h"
#include "desktop/terminal/reading_order.h"
#include "tests/support/test_pc.h"
#include "toolkit/access_key.h"
#include "toolkit/script_front_end.h"
#include "window/frmMain.h"
#include "window/panels.h"

namespace tidemark {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class TerminalPagesTest : public testing::Test {
 protected:
  TerminalPagesTest() {
    desk.main_window = &window.form;
    desk.forms.push_back({.form = &window.form, .command = 0, .loaded = true});
    desk.tray.emplace_back();
    window.form.SetVisible(true);
    window.tvDrives.Add("C", "Local Disk (C:)", 1);
    window.tvDrives.Add("D", "Data (D:)", 1);
    for (int row = 0; row < 40; ++row) {
      for (ListView* list :
           {&window.lvFileTypes, &window.lvExcludeFolders, &window.lvJunkFiles, &window.lvPrograms,
            &window.LvBackup, &window.lvLocations, &window.lvFound, &window.lvProblems}) {
        list->Add("", "row " + std::to_string(row));
      }
    }
    for (int tab = 0; tab < 4; ++tab) {
      window.lblOptions(tab).Clicked.Bind([] {});
      window.lblOptions(tab).SetBackColor(tab == 0 ? 0xFFFFFF : 0);
    }
  }

  void Turn(const std::vector<Control*>& panels) {
    HideAllFrames(window);
    for (Control* panel : panels) panel->SetVisible(true);
  }

  // Height 0: as long as it gets.
  std::string Page(int width = 100, int height = 0) {
    std::string text;
    for (const Line& line : DrawDesk(desk, {.width = width, .height = height})) {
      text += line.Paint(width, false) + "\n";
    }
    return text;
  }

  void Do(const std::string& command) { RunCommand(command, desk, "\t"); }
  std::string Refusal(const std::string& command) {
    try {
      Do(command);
    } catch (const CommandRefused& refusal) {
      return refusal.what();
    }
    return {};
  }

  TestPc pc;
  ScriptFrontEnd front_end;
  frmMain window{front_end, {}};
  Desk desk;
};

// What the page has to say: the names of what a person acts on, and the texts.
void PiecesOfPage(const Control& container, std::vector<std::string>& pieces) {
  constexpr int kOutside = 9000;
  for (const Control* control : container.Controls()) {
    if (!control->Visible() || control->Place().top >= kOutside) continue;
    const auto* button = dynamic_cast<const CommandButton*>(control);
    if (button != nullptr || HasRows(*control)) {
      // A member of a group behind another one is named by its index.
      const std::size_t index = control->Name().find('(');
      const bool first = index == std::string::npos || control->Name().ends_with("(0)");
      pieces.push_back(first ? control->Name() : control->Name().substr(index));
    }
    if (button != nullptr) pieces.push_back(WithoutAccessKey(button->Caption().View()));
    if (const auto* label = dynamic_cast<const Label*>(control)) {
      constexpr std::size_t kFirstWords = 12;
      pieces.emplace_back(label->Caption().View().substr(0, kFirstWords));
    }
    const bool has_named_face = dynamic_cast<const xpcmdbutton*>(control) != nullptr ||
                                dynamic_cast<const Label*>(control) != nullptr;
    if (has_named_face) pieces.push_back(WithoutAccessKey(control->AccessibleName().View()));
    PiecesOfPage(*control, pieces);
  }
}

TEST_F(TerminalPagesTest, EveryPageFitsItsTerminalAndLosesNothing) {
  window.lvScan.SetVisible(false);  // the selection covers it
  window.PbarRemoveJunk.SetVisible(true);
  PictureBox& options = window.picOptions;
  for (const std::vector<Control*>& panels :
       std::vector<std::vector<Control*>>{{&window.picWelcome},
                                          {&window.picScan},
                                          {&window.picClear},
                                          {&options, &window.picAdvOptions(0)},
                                          {&options, &window.picAdvOptions(1)},
                                          {&options, &window.picAdvOptions(2)},
                                          {&window.picJunkCriteria},
                                          {&window.picJunkScan, &window.picScaningJunk}}) {
    Turn(panels);
    std::vector<std::string> pieces;
    PiecesOfPage(window.form, pieces);
    ASSERT_GT(pieces.size(), 4U);
    for (const auto& [width, height] : {std::pair{80, 21}, std::pair{100, 27}}) {
      const std::string page = Page(width, height);
      EXPECT_LE(std::count(page.begin(), page.end(), '\n'), height) << page;
      for (const std::string& piece : pieces) EXPECT_THAT(page, HasSubstr(piece)) << width;
      EXPECT_THAT(page, Not(HasSubstr("\n …"))) << width;
      EXPECT_THAT(page, Not(testing::ContainsRegex("&\\w"))) << width;
    }
  }
}

TEST_F(TerminalPagesTest, ListsSideBySideAreReadOneByOne) {
  Turn({&window.picJunkCriteria});
  const std::string page = Page();
  std::size_t at = 0;
  for (const char* piece :
       {"Drives to scan", "Local Disk", "Files that count as junk", "cmdFileTypes(0) Add",
        "(3) Revert", "Folders that are left alone", "cmdExcludeFolders(0) Add", "cmdJunkScan"}) {
    const std::size_t found = page.find(piece, at);
    ASSERT_NE(found, std::string::npos) << piece << " in\n" << page;
    at = found;
  }
}

TEST_F(TerminalPagesTest, WhatLiesBehindAPanelIsNeitherSeenNorClicked) {
  Turn({&window.picJunkCriteria, &window.picJunkScan});
  Bounds place = window.picJunkCriteria.Place();
  place.top += 400;
  window.picJunkScan.SetPlace(place);
  EXPECT_THAT(Page(), Not(HasSubstr("tvDrives")));
  EXPECT_THAT(Page(), HasSubstr("lvJunkFiles"));
  EXPECT_EQ(Refusal("click cmdJunkScan"), "cmdJunkScan is not shown");
  EXPECT_EQ(Refusal("click imgtoolbar(3)"), "imgtoolbar(3) is not shown");
  place.left = 10000;
  window.picJunkScan.SetPlace(place);
  EXPECT_THAT(Page(), Not(HasSubstr("lvJunkFiles")));
  EXPECT_THAT(Page(), HasSubstr("tvDrives"));
}

TEST_F(TerminalPagesTest, OptionsAndTabsShowWhichOneIsChosen) {
  Turn({&window.picOptions, &window.picAdvOptions(0)});
  Do("click optSchedule(2)");
  Do("click optSchedule(1)");
  window.cmdOptApply.SetEnabled(false);
  const std::string page = Page();
  EXPECT_THAT(page, HasSubstr("[lblOptions(0) Options]   (1) Backups "));
  EXPECT_THAT(page, HasSubstr("[ ] chkScheduler Auto Scan & Fix\n"));
  EXPECT_THAT(page, HasSubstr("(o) optSchedule(1) Every Hour\n ( ) optSchedule(2) Once a Day"));
  EXPECT_THAT(page, HasSubstr("[ cmdOptApply Apply (off) ]"));
}

TEST_F(TerminalPagesTest, ATreesNodesAreTickedByNumberKeyAndText) {
  Turn({&window.picJunkCriteria});
  std::vector<std::string> ticks;
  window.tvDrives.NodeChecked.Bind([&ticks](TreeNode& node) {
    ticks.push_back(node.Key().String() + (node.Checked() ? "+" : "-"));
  });
  for (const char* command : {"tick tvDrives D", "tick tvDrives d", "tick tvDrives 1",
                              "untick tvDrives data (d:)", "tick tvDrives all"}) {
    (void)Refusal(command);
  }
  EXPECT_THAT(ticks, ElementsAre("D+", "C+", "D-", "D+"));
  EXPECT_EQ(Refusal("tick tvDrives E"), "tvDrives has no row E");
  EXPECT_THAT(Page(), HasSubstr("  2  [x] Data (D:)\n"));
}

TEST_F(TerminalPagesTest, SelfDrawnButtonsAndTextBoxesAreUsed) {
  std::vector<int> clicked;
  Turn({&window.picJunkScan});
  for (const int index : {3, 4, 5}) {
    window.cmdJunkFile(index).Clicked.Bind([&clicked, index] { clicked.push_back(index); });
  }
  window.cmdJunkFile(4).SetEnabled(false);
  window.cmdJunkFile(5).SetVisible(false);
  Do("click cmdJunkFile(3)");
  EXPECT_EQ(Refusal("click cmdJunkFile(4)"), "cmdJunkFile(4) is disabled");
  EXPECT_EQ(Refusal("click cmdJunkFile(5)"), "cmdJunkFile(5) is not shown");
  EXPECT_THAT(clicked, ElementsAre(3));

  Turn({&window.picJunkCriteria, &window.FolderPicker});
  Do("type txtFolder  C:\\Program Files ");
  EXPECT_THAT(Page(), HasSubstr("txtFolder [C:\\Program Files]"));
  EXPECT_EQ(window.FolderPicker.Text(), "C:\\Program Files");
  window.FolderPicker.txtFolder.SetLocked(true);
  EXPECT_EQ(Refusal("type txtFolder x"), "txtFolder is locked");
}

TEST_F(TerminalPagesTest, AMenuIsAskedForOnARow) {
  Turn({&window.picClear});
  std::vector<const ListItem*> rows;
  window.lvProblems.ContextMenu.Bind([&] { rows.push_back(window.lvProblems.SelectedItem()); });
  Do("menu lvProblems 3");
  Do("menu lvProblems");
  EXPECT_THAT(rows, ElementsAre(window.lvProblems.Item(3), window.lvProblems.Item(3)));
}

MATCHER_P(TwoLinesFrom, start, "") {
  return arg.starts_with(start) && std::count(arg.begin(), arg.end(), '\n') == 2;
}

TEST_F(TerminalPagesTest, AWindowThatIsNotUpShowsItsTitleAndTheTrayAlone) {
  window.form.SetCaption("Title");
  std::vector<double> moves;
  window.form.MouseMove.Bind([&moves](int, int, double x, double) { moves.push_back(x); });
  Do("minimise");
  EXPECT_THAT(Page(), TwoLinesFrom(" Title (minimised)\n tray: ["));
  EXPECT_THAT(Refusal("click cmdScanNow"), HasSubstr("minimised"));
  Do("tray left");
  Do("restore");
  window.form.SetVisible(false);
  EXPECT_THAT(Page(), TwoLinesFrom(" Title (hidden)\n tray: ["));
  EXPECT_THAT(Refusal("click cmdScanNow"), HasSubstr("not shown"));
  EXPECT_THAT(Refusal("restore"), HasSubstr("hidden"));
  window.form.SetScaleMode(3);
  Do("tray RIGHT");
  EXPECT_THAT(moves, ElementsAre(514 * 15, 517));
}

}  // namespace
}  // namespace tidemark
