// The icon in the notification area, by the messages that the shell sends to the real window.
#include <gtest/gtest.h>

#include <string>

#include "desktop/win32/notification_area.h"
#include "tests/desktop/win32/desktop_pc.h"
#include "tests/support/settings.h"

namespace tidemark {
namespace {

constexpr int kLeftUp = 514;
constexpr int kRightUp = 517;

bool MenuIsOpen() {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  return GetGUIThreadInfo(GetCurrentThreadId(), &info) != FALSE && info.hwndMenuOwner != nullptr;
}

struct TrayPc : DesktopPc {
  HWND Main() const { return Window(window.form); }
  // The icon's number goes where the mouse's buttons are told.
  void FromIcon(int message) const { PostMessageA(Main(), WM_MOUSEMOVE, 1, message); }
  bool IsHidden() const { return IsWindowVisible(Main()) == FALSE; }
  bool IsInFront() const {
    return !IsHidden() && IsIconic(Main()) == FALSE && GetActiveWindow() == Main();
  }
  bool HasScanned() const { return !window.ScanRunning && Stored("LastRunDate") != "none"; }
};

TEST(TrayIcon, AHiddenWindowShowsItsMenuAndComesBackAtAClick) {
  TrayPc on;
  Store("ShowinSystray", "1");
  on.When([&] { return on.HasScanned() && on.IsHidden(); }, [&] { on.FromIcon(kRightUp); });
  on.When(MenuIsOpen, [&] {
    EXPECT_TRUE(on.IsHidden());
    PostMessageA(on.Main(), WM_CANCELMODE, 0, 0);
  });
  on.When([] { return !MenuIsOpen(); },
          [&] {
            EXPECT_TRUE(on.IsHidden());
            on.FromIcon(kLeftUp);
          });
  on.When([&] { return on.IsInFront(); },
          [&] {
            EXPECT_TRUE(on.IsShown(on.window.picClear)) << "the page that the scan has left";
            on.CloseWindow();
          });
  on.RunProgram();
}

TEST(TrayIcon, AShellThatStartsAgainGetsItAgainUntilTheProgramEnds) {
  if (FindWindowA("Shell_TrayWnd", nullptr) == nullptr) GTEST_SKIP() << "no task bar here";
  TrayPc on;
  NotificationArea shell;  // stands for the shell's restart: the program does not know
  const auto forget = [&] { return shell.Notify(TrayMessage::kDelete, on.window.TrayData); };
  on.When([&] { return on.IsInFront(); },
          [&] {
            EXPECT_TRUE(forget());
            EXPECT_FALSE(forget());
            PostMessageA(on.Main(), RegisterWindowMessageA("TaskbarCreated"), 0, 0);
          });
  on.When(forget, [&] {
    PostMessageA(on.Main(), RegisterWindowMessageA("TaskbarCreated"), 0, 0);
    on.CloseWindow();
  });
  on.Run([] {});
  EXPECT_FALSE(forget()) << "it went with the program";
}

TEST(TrayIcon, AScheduledRunOfAHiddenWindowRepairsUnseenWhateverMenuIsOpen) {
  TrayPc on;
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "one", "C:\\gone\\one.exe");
  Store("ShowinSystray", "1");
  Store("Scheduler", "1");
  on.window.TmrScheduler.SetInterval(50);
  on.When([&] { return on.HasScanned() && on.IsHidden(); },
          [&] {
            EXPECT_TRUE(on.pc.Value(HKEY_CURRENT_USER, kRun, "one")) << "nothing was due yet";
            on.FromIcon(kRightUp);
          });
  on.When(MenuIsOpen, [&] { Store("LastRunDate", "1/1/2001"); });  // the schedule is once a week
  on.When([&] { return on.window.picWelcome.Visible() && !on.window.AutoRunActive; },
          [&] {
            EXPECT_TRUE(on.IsHidden());
            EXPECT_FALSE(on.pc.Value(HKEY_CURRENT_USER, kRun, "one"));
            EXPECT_EQ(on.window.LvBackup.Count(), 1) << "the undo file";
            EXPECT_NE(Stored("LastRunDate"), "1/1/2001");
            EXPECT_TRUE(MenuIsOpen());
            PostMessageA(on.Main(), WM_CANCELMODE, 0, 0);
            on.FromIcon(kLeftUp);
          });
  on.When([&] { return on.IsInFront() && on.IsShown(on.window.picWelcome); },
          [&] { on.CloseWindow(); });
  on.RunProgram();
}

}  // namespace
}  // namespace tidemark
