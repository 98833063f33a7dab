#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "helpers/system_helpers.h"
#include "platform/locale_texts.h"
#include "shell/main_window.h"
#include "shell/pages.h"
#include "shell/status.h"
#include "tests/support/settings.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

struct ShellPc : WindowPc {
  ShellPc() {
    for (const char* picture :
         {"RegHealth-Unknown", "RegHealth-Low", "RegHealth-Healthy", "overview", "overview2",
          "settings", "settings2", "AdvancedOptions0", "AdvancedOptions1"}) {
      pc.MakeFile(pc.program_folder() + "\\images\\" + picture + ".jpg");
    }
  }
  static std::string Picture(const ImageBox& image) {
    return image.PictureFile().substr(image.PictureFile().rfind('\\') + 1);
  }
};

TEST(Shell, AFirstStartKnowsNothingAndScans) {
  ShellPc on;
  std::vector<std::string> seen;
  on.front_end.AtYield(1, [&] { seen.push_back(on.window.form.Visible() ? "window" : "splash"); });
  on.front_end.When([&] { return on.window.ScanRunning; },
                    [&] {
                      seen.push_back(on.window.lblLastDate.Caption().String());
                      seen.push_back(on.window.lblTotaltodate.Caption().String());
                      seen.push_back(ShellPc::Picture(on.window.IMGRegistryStatus));
                    });
  const auto start = GetTickCount64();
  Main(on.window);
  EXPECT_GE(GetTickCount64() - start, 1500U) << "the splash stays that long";
  EXPECT_EQ(seen, (std::vector<std::string>{"splash", "Date: Not Available   Time: Not Available",
                                            "0", "RegHealth-Unknown.jpg"}));
  EXPECT_TRUE(on.window.picClear.Visible());
}

TEST(Shell, HomeTellsOfARunningScanAndLeadsToItsResults) {
  ShellPc on;
  frmMain& window = on.window;
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "a", on.pc.folder() + "\\gone.exe");
  SetInitValues(window);
  std::string told;
  on.front_end.When([&] { return window.ScanRunning && window.CurrentLocation == "FONT"; },
                    [&] {
                      window.cmdMenuHome.Click();
                      told = window.lblScanState.Caption().String();
                      window.lblScanState.Click();
                      EXPECT_TRUE(window.picScan.Visible() && !window.picWelcome.Visible());
                    });
  window.cmdScanNow.Click();
  EXPECT_TRUE(told.starts_with("A scan is running : Font References, ")) << told;
  window.cmdMenuHome.Click();
  EXPECT_FALSE(window.lblScanState.Visible() || window.TmrScanState.Enabled());
  EXPECT_EQ(window.IMGRegistryStatus.AccessibleName(),
            "Registry health: Fair, a few problems are open")
      << "whatever picture stayed";
  EXPECT_EQ(window.lblLastscan.ToolTipText(), "Show the results");
  window.lblLastscan.Click();
  EXPECT_TRUE(window.picClear.Visible() && !window.picWelcome.Visible());
  window.cmdFix.Click();
  window.lblLastscan.Click();
  EXPECT_TRUE(window.picWelcome.Visible()) << "what was found is repaired";
  EXPECT_EQ(window.lblLastscan.ToolTipText(), "");
}

TEST(Shell, ASecondInstanceEndsWithNoWindow) {
  ShellPc on;
  on.window.application.previous_instance = true;
  EXPECT_THROW(Main(on.window), ProcessEnded);
  EXPECT_FALSE(on.window.form.Visible());
  EXPECT_EQ(on.front_end.yields(), 0) << "not even the splash was shown";
}

TEST(Shell, ClosingInMidScanSavesTheSelectionAndEnds) {
  ShellPc on;
  on.front_end.When([&] { return on.window.ScanRunning && on.window.lvScan.Count() == 12; },
                    [&] {
                      on.window.lvLocations.Item("FONT")->SetChecked(false);
                      on.front_end.Unload(on.window.form);
                    });
  EXPECT_THROW(Main(on.window), ProcessEnded);
  EXPECT_TRUE(on.window.StopRequested);
  EXPECT_EQ(Stored("LocState"), "1;1;1;1;1;0;1;1;1;1;1;1");
}

TEST(Shell, TheHealthPictureFollowsTheOutstandingErrors) {
  ShellPc on;
  EXPECT_EQ(ShellPc::Picture(on.window.IMGRegistryStatus), "RegHealth-Unknown.jpg");
  for (const auto& [errors, health] : {std::pair{"6", "Low"},
                                       {"5", "Low"},
                                       {"0", "Healthy"},
                                       {"1", "Healthy"},
                                       {"7 or so", "Low"},
                                       {"-1", "Low"},
                                       {"x", "Healthy"},
                                       {"", "Unknown"}}) {
    Store("OutstandingErrors", errors);
    SetInitValues(on.window);
    EXPECT_EQ(ShellPc::Picture(on.window.IMGRegistryStatus),
              "RegHealth-" + std::string(health) + ".jpg")
        << errors;
  }
}

TEST(Shell, TheLastRunIsShownInWords) {
  ShellPc on;
  const SYSTEMTIME time{2006, 11, 6, 4, 0, 0, 0, 0};
  Store("LastRunDate", DateText(time));
  Store("LastRunTime", "noon");
  SetInitValues(on.window);
  EXPECT_EQ(on.window.lblLastDate.Caption(), LongDateText(time) + " - noon");
  Store("LastRunDate", "no date");
  SetStat(on.window);
  EXPECT_EQ(on.window.lblLastDate.Caption(), "no date - noon");
}

TEST(Shell, TheScanPageComesBackAsTheScanHasIt) {
  ShellPc on;
  on.window.pbarScan.SetValue(40);
  on.window.lblstatus.SetCaption("here");
  on.window.ScanRunning = true;
  on.window.cmdMenuScan.Click();
  EXPECT_EQ(on.window.picScan.Controls().back(), &on.window.lvScan);
  EXPECT_EQ(on.window.pbarScan.Value(), 40);
  EXPECT_EQ(on.window.lblstatus.Caption(), "here");
  on.window.ScanRunning = false;
  for (Control* control : {&on.window.cmdBack, &on.window.cmdScan}) control->SetVisible(false);
  on.window.cmdStop.SetVisible(true);
  on.window.cmdMenuScan.Click();
  EXPECT_TRUE(on.window.cmdScan.Visible() && on.window.cmdBack.Visible());
  EXPECT_FALSE(on.window.cmdStop.Visible());
  EXPECT_EQ(on.window.picScan.Controls().back(), &on.window.lvLocations);
  EXPECT_EQ(on.window.pbarScan.Value(), 0);
  EXPECT_EQ(on.window.lblstatus.Caption(), "");
}

TEST(Shell, TabsShowOnePanelAndTheFourthIsNone) {
  ShellPc on;
  int loads = 0;
  on.window.loadPrograms.Bind([&loads] { ++loads; });
  cmdMenuBackups_Click(on.window);
  EXPECT_EQ(on.window.CurrentTab, 1);
  EXPECT_TRUE(on.window.picAdvOptions(1).Visible());
  EXPECT_EQ(on.window.lblOptions(1).BackColor(), 0xFFFFFFU);
  EXPECT_EQ(ShellPc::Picture(on.window.cmdMenuHome), "overview.jpg") << "plain again";
  on.window.lblOptions(3).Click();
  EXPECT_EQ(on.window.CurrentTab, 1);
  on.window.lblOptions(2).Click();
  EXPECT_EQ(loads, 1);
  EXPECT_FALSE(on.window.picAdvOptions(1).Visible());
  EXPECT_EQ(ShellPc::Picture(on.window.picopttoolback), "AdvancedOptions1.jpg")
      << "a missing picture leaves the old one";
}

TEST(Shell, OpensItsWebPagesAndPropertiesAsToldForEach) {
  ShellPc on;
  if (!on.pc.CanFault()) GTEST_SKIP() << "only a hosted PC remembers what was opened";
  const std::string site = on.window.application.web_address = "https://www.tidemark.example";
  const std::string folder = on.pc.program_folder();
  on.window.lblOptions(3).Click();
  for (const int index : {0, 1, 2, 3, 4, 5}) imgtoolbar_Click(on.window, index);
  on.window.about->cmdSupport.Click();
  on.window.form.Help();
  on.window.help->cmdSupport.Click();
  on.pc.MakeFile(folder + "\\x.txt");
  ShowFileProperties(folder + "\\x.txt");
  EXPECT_EQ(
      on.pc.OpenedByShell(),
      (std::vector<std::string>{
          "open|" + site + "/tellafriend.php|1|1|3",
          "Open|" + site + "/tellafriend.php||" + folder + "|1",
          "Open|" + site + "/support.php||" + folder + "|1", "open|" + site + "/support.php|1|1|3",
          "open|" + site + "/support.php|1|1|3", "properties|" + folder + "\\x.txt|||5"}));
}

TEST(Shell, WithoutAWebSiteNothingThatLeadsThereIsSeenOrOpened) {
  for (const std::string site : {"", "https://www.tidemark.example"}) {
    TestPc pc;
    ScriptFrontEnd front_end;
    frmMain window(front_end, {.folder = pc.program_folder(), .web_address = site});
    BindHandlers(window);
    window.cmdAbout.Click();
    window.cmdHelp.Click();
    for (const Control* control : std::initializer_list<const Control*>{
             &window.mnuTellafriend, &window.mnuHelp, &window.cmdTellaFriend, &window.lblOptions(3),
             &window.imgTellaFriend, &window.about->cmdSupport, &window.help->cmdSupport}) {
      EXPECT_EQ(control->Visible(), !site.empty()) << control->Name();
    }
    EXPECT_TRUE(window.help->form.Visible() && window.about->form.Visible());
    if (!site.empty()) continue;
    for (MenuItem* item : {&window.mnuHelp, &window.mnuTellafriend}) item->Click();
    window.cmdTellaFriend.Click();
    window.help->cmdSupport.Click();
    EXPECT_TRUE(pc.OpenedByShell().empty());
    window.help->cmdClose.Click();
    EXPECT_EQ(window.help, nullptr);
  }
}

}  // namespace
}  // namespace tidemark
