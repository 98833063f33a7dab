#include "controls/xp_progress_bar.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tidemark {
namespace {

constexpr int kFullPercent = 100;

// Half to even, as the system rounds; nothing for what is no 32-bit number.
std::optional<int> RoundedToLong(double number) {
  const double rounded = std::nearbyint(number);
  const bool fits =
      rounded >= std::numeric_limits<int>::min() && rounded <= std::numeric_limits<int>::max();
  if (!fits) return std::nullopt;
  return static_cast<int>(rounded);
}

}  // namespace

int XP_ProgressBar::Value() const {
  const int divisor = min_ >= 1 ? min_ : 1;
  return RoundedToLong(look_.percent / 100.0 * max_ / divisor).value_or(0);
}

void XP_ProgressBar::SetValue(int value) {
  if (max_ == 0) return;
  const std::optional<int> percent = RoundedToLong(value * 100.0 / max_ + min_);
  if (!percent) return;
  const int shown = std::min(*percent, kFullPercent);
  // A walker sets Value for every key it meets: most sets can't show anything new.
  if (shown == look_.percent && brush_style_ == look_.brush_style) return;
  look_.percent = shown;
  DrawProgressBar();
}

void XP_ProgressBar::SetFont(const tidemark::Font& font) {
  look_.font = font;
  DrawProgressBar();
}

void XP_ProgressBar::SetDisplay(const Display& display) {
  if (display == look_.display) return;
  look_.display = display;
  DrawProgressBar();
}

void XP_ProgressBar::SetSize(int width, int height) {
  width = std::max(width, 0);
  height = std::max(height, 0);
  if (width == picture_.Width() && height == picture_.Height()) return;
  picture_ = Canvas(width, height);
  DrawProgressBar();
}

void XP_ProgressBar::DrawProgressBar() {
  look_.brush_style = brush_style_;
  ++version_;
}

const Canvas& XP_ProgressBar::Painting() {
  if (painted_version_ != version_) {
    PaintBar(look_, picture_);
    painted_version_ = version_;
  }
  return picture_;
}

}  // namespace tidemark
