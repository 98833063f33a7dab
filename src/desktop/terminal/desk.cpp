#include "desktop/terminal/desk.h"

namespace tidemark {

std::string_view TipOf(const TrayIcon& icon) {
  const std::string_view tip(icon.szTip.data(), icon.szTip.size());
  return tip.substr(0, tip.find('\0'));
}

// The platform sends the message's number in x, in pixels. The terminal's pixels are those of 96
// dots per inch.
void ClickTray(Form& main_window, TrayClick click) {
  constexpr int kPixels = 3;
  constexpr int kTwipsPerPixel = 15;
  const int message = static_cast<int>(click);
  const int x = main_window.ScaleMode() == kPixels ? message : message * kTwipsPerPixel;
  main_window.MouseMove(0, 0, x, 0);
}

}  // namespace tidemark
