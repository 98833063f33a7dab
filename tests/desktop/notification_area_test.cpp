#include "desktop/win32/notification_area.h"

#include <gtest/gtest.h>

namespace tidemark {
namespace {

TEST(NotificationArea, AddsAgainWhatTheShellHasForgotten) {
  if (FindWindowA("Shell_TrayWnd", nullptr) == nullptr) GTEST_SKIP() << "no task bar here";
  const HWND window = CreateWindowA("Static", "owner", WS_OVERLAPPED, 0, 0, 9, 9, nullptr, nullptr,
                                    nullptr, nullptr);
  TrayIcon icon;
  icon.cbSize = sizeof(icon);
  icon.hWnd = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(window));
  icon.uID = 1;
  icon.szTip.fill('x');  // no NUL at its end

  NotificationArea area;
  NotificationArea shell;  // stands for the shell's restart: the other does not know
  EXPECT_TRUE(area.Notify(TrayMessage::kAdd, icon));
  EXPECT_TRUE(shell.Notify(TrayMessage::kDelete, icon));
  area.AddAgain();
  EXPECT_TRUE(area.Notify(TrayMessage::kDelete, icon)) << "it was there again";
  area.AddAgain();
  EXPECT_FALSE(area.Notify(TrayMessage::kDelete, icon)) << "deleted: not added again";
  DestroyWindow(window);
}

}  // namespace
}  // namespace tidemark
