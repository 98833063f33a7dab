#include "shell/tray.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "helpers/system_helpers.h"
#include "helpers/text_helpers.h"
#include "platform/winapi.h"
#include "shell/pages.h"

namespace tidemark {
namespace {

constexpr std::uint32_t kMessageIconAndTip = 7;
constexpr std::uint32_t kMouseMoveMessage = 512;
constexpr std::int32_t kLeftButtonUp = 514;
constexpr std::int32_t kRightButtonUp = 517;
constexpr int kPixels = 3;  // of ScaleMode

void Restore(frmMain& window) {
  window.form.SetState(WindowState::kNormal);
  window.form.SetVisible(true);
}

void OpenPageOnTop(frmMain& window, std::string_view path) {
  Restore(window);
  window.front_end.DoEvents();
  OpenWebPage(window.front_end.WindowHandle(window.form), window.application.web_address, path,
              "open", "1", "1", SW_SHOWMAXIMIZED);
}

}  // namespace

void AddTrayIcon(frmMain& window) {
  TrayIcon& icon = window.TrayData;
  icon = {};
  icon.cbSize = sizeof icon;
  // The platform uses no more than 32 bits of a window's handle.
  icon.hWnd = static_cast<std::uint32_t>(
      reinterpret_cast<std::uintptr_t>(window.front_end.WindowHandle(window.form)));
  icon.uID = 1;
  icon.uFlags = kMessageIconAndTip;
  icon.uCallbackMessage = kMouseMoveMessage;
  icon.hIcon = window.front_end.IconHandle(window.Image1);
  const std::string_view title =
      std::string_view(window.application.title).substr(0, icon.szTip.size() - 1);
  std::copy(title.begin(), title.end(), icon.szTip.begin());
  window.front_end.NotifyIcon(TrayMessage::kAdd, icon);
}

void RemoveTrayIcon(frmMain& window) {
  window.front_end.NotifyIcon(TrayMessage::kDelete, window.TrayData);
}

void Form_MouseMove(frmMain& window, int /*button*/, int /*shift*/, double x, double /*y*/) {
  const double pixels =
      window.form.ScaleMode() == kPixels ? x : x / window.front_end.TwipsPerPixelX(window.form);
  const std::int32_t message = RoundToLong(pixels).value_or(0);
  if (message == kLeftButtonUp) {
    window.form.SetState(WindowState::kNormal);
    if (!window.form.Visible()) window.front_end.Show(window.form);
    window.front_end.SetForeground(window.form);
  } else if (message == kRightButtonUp && window.form.State() != WindowState::kNormal) {
    window.front_end.PopupMenu(window.mnusystray);
  }
}

void mnuOpen_Click(frmMain& window) {
  Restore(window);
  window.front_end.DoEvents();
}

void mnuAbout_Click(frmMain& window) {
  Restore(window);
  imgtoolbar_Click(window, 3);
}

void mnuHelp_Click(frmMain& window) { OpenPageOnTop(window, "/support.php"); }
void mnuTellafriend_Click(frmMain& window) { OpenPageOnTop(window, "/tellafriend.php"); }

}  // namespace tidemark
