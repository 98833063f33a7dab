// How the window's pages are printed, and how their controls are driven.
#include <gmock/gmock.h>

#include <algorithm>

#include "desktop/terminal/commands.h"
#include "desktop/terminal/display_text.h"
#include "desktop/terminal/script/page.h"
#include "tests/desktop/terminal/pages_test.h"
#include "toolkit/access_key.h"
#include "toolkit/reading_order.h"

namespace tidemark {
namespace {

using testing::HasSubstr;
using testing::Not;

class TerminalPagesTest : public PagesTest {
 protected:
  std::string Page() {
    std::string text;
    for (const Line& line : PrintDesk(desk, kWidth)) text += line.Print(kWidth) + "\n";
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

  static constexpr int kWidth = 100;
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

TEST_F(TerminalPagesTest, EveryPageIsPrintedWhole) {
  for (const std::vector<Control*>& panels : Pages()) {
    Turn(panels);
    std::vector<std::string> pieces;
    PiecesOfPage(window.form, pieces);
    ASSERT_GT(pieces.size(), 4U);
    const std::string page = Page();
    for (const std::string& piece : pieces) EXPECT_THAT(page, HasSubstr(piece));
    EXPECT_THAT(page, Not(testing::ContainsRegex("&\\w")));
  }
}

TEST_F(TerminalPagesTest, ListsSideBySideAreReadOneByOneAndTicked) {
  Turn({&window.picJunkCriteria});
  EXPECT_EQ(Refusal("tick tvDrives D"), "");
  EXPECT_EQ(Refusal("tick tvDrives E"), "tvDrives has no row E");
  const std::string page = Page();
  std::size_t at = 0;
  for (const char* piece :
       {"Drives to scan", "Local Disk", "  2  [x] Data (D:)\n", "Files that count as junk",
        "cmdFileTypes(0) Add", "(3) Revert", "Folders that are left alone", "cmdJunkScan"}) {
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
  place.left = 10000;
  window.picJunkScan.SetPlace(place);
  EXPECT_THAT(Page(), Not(HasSubstr("lvJunkFiles")));
  EXPECT_THAT(Page(), HasSubstr("tvDrives"));
}

TEST_F(TerminalPagesTest, OptionsAndTabsShowWhichOneIsChosen) {
  Turn({&window.picOptions, &window.picAdvOptions(0)});
  Do("click optSchedule(1)");
  window.cmdOptApply.SetEnabled(false);
  const std::string page = Page();
  for (const char* piece :
       {"[lblOptions(0) Options]   (1) Backups ", "[ ] chkScheduler Auto Scan & Fix\n",
        "(o) optSchedule(1) Every Hour\n ( ) optSchedule(2) Once a Day",
        "[ cmdOptApply Apply (off) ]"}) {
    EXPECT_THAT(page, HasSubstr(piece));
  }
}

TEST_F(TerminalPagesTest, SelfDrawnButtonsAndTextBoxesAreUsed) {
  Turn({&window.picJunkScan});
  int clicks = 0;
  window.cmdJunkFile(3).Clicked.Bind([&clicks] { ++clicks; });
  Do("click cmdJunkFile(3)");
  window.cmdJunkFile(3).SetEnabled(false);
  EXPECT_EQ(Refusal("click cmdJunkFile(3)"), "cmdJunkFile(3) is disabled");
  EXPECT_EQ(clicks, 1);

  Turn({&window.picJunkCriteria, &window.FolderPicker});
  Do("type txtFolder  C:\\Program Files ");
  EXPECT_THAT(Page(), HasSubstr("txtFolder [C:\\Program Files]"));
  window.FolderPicker.txtFolder.SetLocked(true);
  EXPECT_EQ(Refusal("type txtFolder x"), "txtFolder is locked");
}

MATCHER_P(TwoLinesFrom, start, "") {
  return arg.starts_with(start) && std::count(arg.begin(), arg.end(), '\n') == 2;
}

TEST_F(TerminalPagesTest, AWindowThatIsNotUpShowsItsTitleAndTheTrayAlone) {
  window.form.SetCaption("Title");
  Do("minimise");
  EXPECT_THAT(Page(), TwoLinesFrom(" Title (minimised)\n tray: ["));
  EXPECT_THAT(Refusal("click cmdScanNow"), HasSubstr("minimised"));
  Do("restore");
  window.form.SetVisible(false);
  EXPECT_THAT(Page(), TwoLinesFrom(" Title (hidden)\n tray: ["));
  EXPECT_THAT(Refusal("click cmdScanNow"), HasSubstr("not shown"));
  EXPECT_THAT(Refusal("restore"), HasSubstr("hidden"));
}

}  // namespace
}  // namespace tidemark
