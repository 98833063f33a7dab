// Questions, menus, the tray icon and timers at the terminal.
#include "tests/desktop/terminal/terminal_test.h"

namespace tidemark {
namespace {

using testing::HasSubstr;

TEST_F(TerminalTest, TheNextLineAnswersAQuestion) {
  std::string answer;
  const auto yes_no = [&] { answer = front_end.AskYesNo("Sure?", "Title") ? "yes" : "no"; };
  const auto text = [&] { answer = front_end.InputBox("A pattern:", "Title", "*.tmp"); };
  const auto folder = [&] { answer = front_end.BrowseForFolder("Title"); };
  const auto save = [&] { answer = front_end.AskSaveFile("Title", "list.csv"); };
  const std::string there = pc.folder() + "\\there.csv";
  pc.MakeFile(there);
  struct Case {
    std::function<void()> ask;
    std::vector<std::string> lines;
    std::string answer;
    int status = 0;
  };
  for (const Case& c :
       {Case{yes_no, {"yes"}, "yes"}, Case{yes_no, {" Y "}, "yes"}, Case{yes_no, {"NO"}, "no"},
        Case{yes_no, {"quit", "", "y"}, "yes", 1}, Case{yes_no, {}, "no"},
        Case{text, {" two  blanks "}, " two  blanks "}, Case{text, {"="}, "*.tmp"},
        Case{text, {""}, ""}, Case{text, {}, ""}, Case{folder, {"C:\\Old Files"}, "C:\\Old Files"},
        Case{folder, {""}, ""}, Case{save, {"C:\\new.csv"}, "C:\\new.csv"},
        Case{save, {there, "y"}, there}, Case{save, {there, "n"}, ""}}) {
    answer = "none";
    window.cmdFix.Clicked.Bind(c.ask);
    std::deque<std::string> lines(c.lines.begin(), c.lines.end());
    lines.push_front("click cmdFix");
    EXPECT_EQ(Run(lines), c.status);
    EXPECT_EQ(answer, c.answer) << testing::PrintToString(c.lines);
    EXPECT_THAT(console.written, HasSubstr("┌─ Title ─"));
  }
  EXPECT_THAT(console.errors, HasSubstr("yes or no"));
}

TEST_F(TerminalTest, ANoticeBearsTheMarkOfItsKind) {
  window.cmdFix.Clicked.Bind([this] {
    front_end.ShowMessage("told\r\nmore", "T", MessageIcon::kInformation);
    front_end.ShowMessage("failed", "T", MessageIcon::kCritical);
  });
  Run({"click cmdFix", "show lblFound"});
  EXPECT_THAT(console.written, HasSubstr("│ (i) told │"));
  EXPECT_THAT(console.written, HasSubstr("│     more │"));
  EXPECT_THAT(console.written, HasSubstr("│ (x) failed │"));
}

TEST_F(TerminalTest, AMenuTakesOneOfItsItems) {
  std::string chosen;
  for (MenuItem* item : {&window.mnuOpen, &window.mnuTellafriend, &window.mnuHelp}) {
    item->SetVisible(true);
    item->Clicked.Bind([&chosen, item] { chosen += item->Name(); });
  }
  window.mnuTellafriend.SetCaption("Tell a &Friend");
  window.mnuHelp.SetEnabled(false);
  window.cmdFix.Clicked.Bind([this] { front_end.PopupMenu(window.mnusystray); });
  for (auto [answers, name] : std::vector<std::pair<std::deque<std::string>, std::string>>{
           {{"MNUOPEN"}, "mnuOpen"},
           {{"tell a friend"}, "mnuTellafriend"},
           {{""}, ""},
           {{"mnuHelp", "mnuspe1", "5", "1"}, "mnuOpen"},
           {{}, ""}}) {
    chosen.clear();
    answers.push_front("click cmdFix");
    Run(answers);
    EXPECT_EQ(chosen, name) << testing::PrintToString(answers);
  }
  EXPECT_THAT(console.written, HasSubstr("2  mnuTellafriend Tell a Friend"));
  EXPECT_THAT(console.written, HasSubstr("3  mnuHelp Help (off)"));
}

TEST_F(TerminalTest, TheTrayIconStaysUntilItIsTakenAway) {
  TrayIcon icon;
  icon.uID = 1;
  icon.szTip = {'T', 'i', 'p'};
  EXPECT_TRUE(front_end.NotifyIcon(TrayMessage::kAdd, icon));
  window.form.Load.Bind([this] { window.form.SetState(WindowState::kMinimized); });
  window.form.MouseMove.Bind([&](int button, int shift, double x, double) {
    EXPECT_EQ(button + shift, 0);
    if (x == 514 * 15) window.form.SetState(WindowState::kNormal);
    if (x == 517 * 15) front_end.NotifyIcon(TrayMessage::kDelete, icon);
  });
  Run({"click cmdFix", "tray left", "click cmdFix", "tray right", "tray right"});
  EXPECT_THAT(console.written, HasSubstr("(minimised)\n tray: [Tip] "));
  EXPECT_THAT(console.errors,
              HasSubstr("the window is minimised\ntidemark: there is no tray icon"));
}

class TerminalTimerTest : public TerminalTest {
 protected:
  TerminalTimerTest() {
    window.TmrScheduler.SetInterval(300);
    window.TmrScheduler.SetEnabled(true);
    window.TmrScheduler.Tick.Bind([this] { ticks.push_back(GetTickCount64() - started); });
    window.cmdCancel.Clicked.Bind([this] { window.TmrScheduler.SetEnabled(false); });
  }

  const ULONGLONG started = GetTickCount64();
  std::vector<ULONGLONG> ticks;  // when they came
};

TEST_F(TerminalTimerTest, TicksWhenDueAlsoInAHiddenWindow) {
  window.form.Load.Bind([this] { window.form.SetState(WindowState::kMinimized); });
  EXPECT_EQ(Run({"wait 0.8", "restore", "wait 0.25", "click cmdCancel", "wait 0.5"}), 0);
  ASSERT_EQ(ticks.size(), 3U);
  for (std::size_t i = 0; i < ticks.size(); ++i) {
    EXPECT_GE(ticks[i], 300 * (i + 1));
    EXPECT_LT(ticks[i], 300 * (i + 1) + 250);
  }
  EXPECT_EQ(console.timeouts.back(), -1) << "nothing to wait for once it is off";
}

TEST_F(TerminalTimerTest, TicksWhileAQuestionWaitsAndMakesUpForNone) {
  window.cmdFix.Clicked.Bind([this] {
    Sleep(1000);
    front_end.AskYesNo("Sure?", "Title");
  });
  Run({"click cmdFix", "yes", "click cmdCancel"});
  EXPECT_EQ(ticks.size(), 1U);
}

}  // namespace
}  // namespace tidemark
