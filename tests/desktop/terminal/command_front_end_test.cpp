#include "tests/desktop/terminal/terminal_test.h"

namespace tidemark {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST_F(TerminalTest, PrintsAPageOnceAndWithoutWhatNobodySees) {
  window.lvInvalidLoc.Add("K1", "beyond the window's edge");
  HideAllFrames(window);
  window.picScan.SetVisible(true);
  window.lvLocations.Add("LIB", "TypeLibs");
  window.lvScan.Add("LIB", "behind the selection");
  Run({"page lvLocations next", "tick chkSelectAll"});
  const std::size_t first = console.written.find("lvLocations");
  const std::size_t second = console.written.find("lvLocations", first + 1);
  EXPECT_NE(second, std::string::npos) << "the tick changes the page";
  EXPECT_EQ(console.written.find("lvLocations", second + 1), std::string::npos);
  EXPECT_THAT(console.written, HasSubstr("[x] chkSelectAll"));
  for (const char* unseen : {"behind", "beyond", "\x1b"}) {
    EXPECT_THAT(console.written, Not(HasSubstr(unseen)));
  }
}

TEST_F(TerminalTest, TicksReachTheRowsHandler) {
  struct Case {
    std::string command;
    std::vector<std::string> ticked;
  };
  for (const Case& c :
       {Case{"untick lvProblems 2", {"K2-"}}, Case{"tick lvProblems all", {"K2+"}},
        Case{"untick lvProblems 1-2 3", {"K1-", "K2-", "K3-"}}, Case{"tick lvProblems K3", {"K3+"}},
        Case{"tick lvProblems hkey_classes_root\\K1", {"K1+"}},
        Case{"untick lvProblems 3-9", {}}}) {
    ticked.clear();
    Run({c.command});
    EXPECT_EQ(ticked, c.ticked) << c.command;
  }
}

TEST_F(TerminalTest, RefusesWhatAPersonCouldNotDo) {
  window.cmdCancel.SetEnabled(false);
  bool clicked = false;
  window.cmdScan.Clicked.Bind([&clicked] { clicked = true; });
  for (const auto& [command, reason] : std::vector<std::pair<std::string, std::string>>{
           {"click cmdScan", "cmdScan is not shown"},
           {"click cmdCancel", "cmdCancel is disabled"},
           {"click nothing", "there is no control named nothing"},
           {"click lvProblems", "lvProblems can't be clicked"},
           {"select lvProblems 4", "lvProblems has no row 4"},
           {"select lvProblems 99999999999999999999", "has no row"},
           {"tick lvFound all", "lvFound has no check boxes"},
           {"press lvProblems column 8", "lvProblems has columns 1 to 7"},
           {"tray left", "there is no tray icon"},
           {"wait a minute", "wait SECONDS"},
           {"type lblFound x", "lblFound is no text box"},
           {"page lvProblems sideways", "page LIST"},
           {"\x1b[2J \xff", "there is no command ·[2J"}}) {
    console.errors.clear();
    EXPECT_EQ(Run({command}), 1) << command;
    EXPECT_THAT(console.errors, HasSubstr(reason));
  }
  EXPECT_FALSE(clicked);
}

TEST_F(TerminalTest, AScriptReadsAListWithItsFullTexts) {
  window.lvProblems.Item(2)->SetSubItem(2, "C:\\gone\t\x1b[31m.dll");
  Run({"show lvProblems 2 1", "show lblFound", "show cmdScan"});
  EXPECT_THAT(console.written,
              HasSubstr("row\tkey\tchecked\tInvalid data location\tValue name\tValue Data\tReason\t"
                        "Type\tSelected\tloc\n"
                        "2\tK2\t[x]\tHKEY_CLASSES_ROOT\\K2\t\tC:\\gone··[31m.dll\t\t\t\t\n"));
  EXPECT_THAT(console.written, HasSubstr("Scan (not shown)\n"));
}

TEST_F(TerminalTest, AListThatShrinksUnderItsScrollingShowsWhatIsLeft) {
  for (int row = 4; row <= 50; ++row) window.lvProblems.Add("K" + std::to_string(row), "more");
  window.cmdFix.Clicked.Bind([this] {
    window.lvProblems.Clear();
    window.lvProblems.Add("K1", "the last one");
  });
  Run({"select lvProblems 50", "page lvProblems 31", "page lvProblems back", "click cmdFix"});
  for (const char* piece :
       {" 31-50 of 50 rows ", "> 50  [ ] more", " 11-30 of 50 rows ", "  1  [ ] the last one"}) {
    EXPECT_THAT(console.written, HasSubstr(piece));
  }
}

TEST_F(TerminalTest, AScriptsCommandsWaitForTheEndOfTheWork) {
  window.cmdFix.Clicked.Bind([this] {
    for (int yield = 0; yield < 10'000; ++yield) front_end.DoEvents();
    EXPECT_THAT(console.lines, ElementsAre("click cmdCancel"));
  });
  window.cmdCancel.Clicked.Bind([this] { window.StopRequested = true; });
  EXPECT_EQ(Run({"click cmdFix", "click cmdCancel"}), 0);
  EXPECT_TRUE(window.StopRequested);
}

TEST_F(TerminalTest, AQuestionInTheMiddleOfTheWorkIsAnswered) {
  window.cmdFix.Clicked.Bind([this] { AskWithBox("Really?"); });
  for (const char* answer : {"click cmdNo", "N", "no"}) {
    console.written = console.errors = "";
    window.lblFound.SetCaption("");
    EXPECT_EQ(Run({"# a comment", "", "CLICK cmdfix", "click cmdOK", "close", "OK", answer}), 1);
    EXPECT_THAT(console.written, HasSubstr("[ cmdYes Yes ]  [ cmdNo No ]"));
    EXPECT_EQ(console.errors,
              "tidemark: cmdOK is not shown\ntidemark: the question has to be answered\n"
              "tidemark: there is no command OK; \"help\" lists them\n");
    EXPECT_THAT(console.written, HasSubstr("answered")) << answer;
  }
}

TEST_F(TerminalTest, CloseTakesTheDialogFirst) {
  window.cmdFix.Clicked.Bind([this] {
    window.about = std::make_unique<frmAbout>(Application{});
    window.about->form.Unload.Bind([this] { window.about.reset(); });
    front_end.Show(window.about->form);
  });
  Run({"click cmdFix", "close", "show lblVersion", "close", "click cmdFix"});
  EXPECT_EQ(window.about, nullptr);
  EXPECT_EQ(closed, 1);
  EXPECT_THAT(console.errors, HasSubstr("no control named lblVersion"));
  EXPECT_THAT(console.lines, ElementsAre("click cmdFix"));
}

}  // namespace
}  // namespace tidemark
