#include "controls/xpcmdbutton.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "toolkit/bitmap_file.h"

namespace tidemark {
namespace {

constexpr int kLeftButton = 1;
constexpr int kEnter = 13;
constexpr int kBlank = 32;
constexpr int kLeaveInterval_ms = 50;

constexpr OleColor kEnabledCaption = 0x000000;
constexpr OleColor kDisabledCaption = 0x92A1A1;  // red 161, green 161, blue 146

}  // namespace

xpcmdbutton::xpcmdbutton(Control* container, std::string name)
    : CanvasControl(container, std::move(name)) {
  look_.caption = Name();
  if (container != nullptr) look_.font = container->Font();
  timer_.SetEnabled(false);
  timer_.SetInterval(kLeaveInterval_ms);
  timer_.Tick.Bind([this] { Timer1_Timer(); });
}

template <class T>
void xpcmdbutton::Show(T& part, T value) {
  if (part == value) return;
  part = std::move(value);
  ++version_;
}

void xpcmdbutton::SetCaption(Text caption) { Show(look_.caption, std::move(caption)); }

void xpcmdbutton::SetFont(const tidemark::Font& font) { Show(look_.font, font); }

void xpcmdbutton::SetEnabled(bool enabled) {
  CanvasControl::SetEnabled(enabled);
  if (!enabled) pressed_ = false;
  RefreshFace();
  Show(look_.caption_color, enabled ? kEnabledCaption : kDisabledCaption);
}

void xpcmdbutton::SetState(int state) {
  state_ = state;
  RefreshFace();
}

void xpcmdbutton::SetPicture(Bitmap picture) { Show(look_.picture, std::move(picture)); }

bool xpcmdbutton::LoadPicture(const std::string& file) {
  std::optional<Bitmap> picture = LoadBitmapFile(file);
  if (!picture) return false;
  SetPicture(std::move(*picture));
  return true;
}

bool xpcmdbutton::LoadFaces(const std::string& file) {
  std::optional<Bitmap> faces = LoadBitmapFile(file);
  if (!faces || !IsFaceStrip(*faces)) return false;
  Show(look_.faces, std::move(*faces));
  return true;
}

void xpcmdbutton::RefreshFace() {
  if (state_ == 1) stored_face_ = ButtonFace::kRestingState1;
  if (state_ == 0) stored_face_ = ButtonFace::kResting;
  PaintFace(Enabled() ? stored_face_ : ButtonFace::kDisabled);
}

void xpcmdbutton::PaintFace(ButtonFace face) { Show(look_.face, face); }

bool xpcmdbutton::IsInside(int x, int y) const {
  return x >= 0 && y >= 0 && x < picture_.Width() && y < picture_.Height();
}

void xpcmdbutton::UserMouseDown(int button, int shift, int x, int y) {
  if (!Enabled()) return;
  pressed_ = button == kLeftButton;
  MouseDown(button, shift, x, y);
  if (Enabled()) PaintFace(ButtonFace::kPressed);
}

void xpcmdbutton::UserMouseMove(int button, int shift, int x, int y) {
  if (!Enabled()) return;
  SetCursor(x, y);
  timer_.SetEnabled(true);
  if (!IsInside(x, y)) return;
  MouseMove(button, shift, x, y);
  if (Enabled()) PaintFace(button == kLeftButton ? ButtonFace::kPressed : ButtonFace::kHover);
}

void xpcmdbutton::UserMouseUp(int button, int shift, int x, int y) {
  if (!Enabled()) return;
  const bool is_click = button == kLeftButton && pressed_ && IsInside(x, y);
  if (button == kLeftButton) pressed_ = false;
  MouseUp(button, shift, x, y);
  RefreshFace();
  if (is_click) Click();
}

void xpcmdbutton::UserKeyDown(int key_code, int shift) {
  if (Enabled()) KeyDown(key_code, shift);
}

void xpcmdbutton::UserKeyPress(int character) {
  if (!Enabled()) return;
  KeyPress(character);
  if (character == kBlank || character == kEnter) Click();
}

void xpcmdbutton::UserKeyUp(int key_code, int shift) {
  if (Enabled()) KeyUp(key_code, shift);
}

void xpcmdbutton::UserAccessKey() { Click(); }

void xpcmdbutton::SetFocused(bool focused) { Show(look_.focused, focused); }

void xpcmdbutton::SetCursor(int x, int y) {
  cursor_x_ = x;
  cursor_y_ = y;
}

void xpcmdbutton::Timer1_Timer() {
  if (IsInside(cursor_x_, cursor_y_)) return;
  timer_.SetEnabled(false);
  MouseLeave();
  RefreshFace();
}

void xpcmdbutton::SetDisplay(const Display& display) { Show(look_.display, display); }

void xpcmdbutton::SetSize(int width, int height) {
  width = std::max(width, 0);
  height = std::max(height, 0);
  if (width == picture_.Width() && height == picture_.Height()) return;
  picture_ = Canvas(width, height);
  ++version_;
}

const Canvas& xpcmdbutton::Painting() {
  if (painted_version_ != version_) {
    PaintButton(look_, picture_);
    painted_version_ = version_;
  }
  return picture_;
}

}  // namespace tidemark
