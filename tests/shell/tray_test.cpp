#include "shell/tray.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/main_window.h"
#include "tests/support/settings.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

constexpr double kLeftUp = 514;
constexpr double kRightUp = 517;

TEST(Tray, TheIconIsThereAsLongAsTheProgram) {
  WindowPc on;
  on.front_end.Show(on.window.form);
  ASSERT_EQ(on.front_end.tray().size(), 1U);
  const TrayIcon& icon = on.front_end.tray()[0];
  EXPECT_NE(icon.hWnd, 0U);
  EXPECT_EQ(icon.hIcon, on.front_end.IconHandle(on.window.Image1));
  EXPECT_STREQ(icon.szTip.data(), "Tidemark");
  EXPECT_THROW(on.front_end.Unload(on.window.form), ProcessEnded);
  EXPECT_TRUE(on.front_end.tray().empty());
}

TEST(Tray, AStartInTheTrayIsHiddenUntilItsIconIsClicked) {
  WindowPc on;
  Store("ShowinSystray", "1");
  Main(on.window);
  EXPECT_FALSE(on.window.form.Visible());
  EXPECT_EQ(on.window.form.State(), WindowState::kMinimized);
  EXPECT_TRUE(on.window.picClear.Visible()) << "it has scanned, unseen";
  EXPECT_EQ(on.front_end.tray().size(), 1U);
  on.window.form.MouseMove(0, 0, kLeftUp * 15, 0);
  EXPECT_TRUE(on.window.form.Visible());
  EXPECT_EQ(on.window.form.State(), WindowState::kNormal);
  EXPECT_EQ(on.front_end.foreground(), (std::vector<const Form*>{&on.window.form}));
  EXPECT_EQ(on.front_end.tray().size(), 1U) << "it is not loaded a second time";
}

TEST(Tray, TheIconsMessagesComeAsMouseMoves) {
  struct Case {
    int scale_mode;
    double x;
    bool minimized;
    bool in_front;  // afterwards
    bool menu;
  };
  for (const Case& one : {Case{1, kLeftUp * 15, true, true, false},
                          {1, kLeftUp * 15 + 7, false, true, false},  // rounded
                          {1, kLeftUp * 15 + 8, true, false, false},
                          {3, kLeftUp, true, true, false},  // also a real mouse at that pixel
                          {3, kRightUp, true, false, true},
                          {1, kRightUp * 15, true, false, true},
                          {1, kRightUp * 15, false, false, false},
                          {3, 512, true, false, false},
                          {3, 1e300, true, false, false}}) {
    WindowPc on;
    on.window.form.SetScaleMode(one.scale_mode);
    if (one.minimized) on.window.form.SetState(WindowState::kMinimized);
    on.window.form.MouseMove(0, 0, one.x, 0);
    EXPECT_EQ(on.front_end.foreground().size(), one.in_front ? 1U : 0U) << one.x;
    EXPECT_EQ(on.front_end.menus().size(), one.menu ? 1U : 0U) << one.x;
    EXPECT_EQ(on.window.form.State() == WindowState::kMinimized, one.minimized && !one.in_front)
        << one.x;
  }
}

TEST(Tray, ItsMenuBringsTheWindowBack) {
  WindowPc on;
  on.window.application.web_address = "https://www.tidemark.example";
  for (MenuItem* item :
       {&on.window.mnuOpen, &on.window.mnuTellafriend, &on.window.mnuHelp, &on.window.mnuAbout}) {
    // On Windows these two open a page in the user's browser.
    const bool web = item == &on.window.mnuTellafriend || item == &on.window.mnuHelp;
    if (web && !on.pc.CanFault()) continue;
    on.window.form.SetState(WindowState::kMinimized);
    on.window.form.SetVisible(false);
    const long yields = on.front_end.yields();
    on.front_end.ChooseFromMenu(*item);
    on.window.form.MouseMove(0, 0, kRightUp * 15, 0);
    EXPECT_TRUE(on.window.form.Visible()) << item->Name();
    EXPECT_EQ(on.window.form.State(), WindowState::kNormal) << item->Name();
    EXPECT_EQ(on.front_end.yields() - yields, item == &on.window.mnuAbout ? 0 : 1) << item->Name();
  }
  ASSERT_NE(on.window.about, nullptr);
  EXPECT_TRUE(on.window.about->form.Visible());
  EXPECT_EQ(on.pc.OpenedByShell().size(), on.pc.CanFault() ? 2U : 0U);
}

}  // namespace
}  // namespace tidemark
