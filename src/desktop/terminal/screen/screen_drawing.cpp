// What stands on the screen: the page, the windows over it, the status line.
#include <algorithm>

#include "desktop/terminal/control_face.h"
#include "desktop/terminal/display_text.h"
#include "desktop/terminal/screen/painter.h"
#include "desktop/terminal/screen/screen_front_end.h"
#include "toolkit/focus.h"

namespace tidemark {
namespace {

constexpr int kLeastWidth = 60;
constexpr int kLeastHeight = 20;
constexpr int kWidestWindow = 90;
constexpr int kFrameRows = 1;
constexpr int kFrameColumns = 3;

bool IsUp(const Form& form) { return form.Visible() && form.State() == WindowState::kNormal; }

}  // namespace

bool ScreenFrontEnd::IsTooSmall() const {
  return screen_.Width() < kLeastWidth || screen_.Height() < kLeastHeight;
}

Area ScreenFrontEnd::PageArea() const {
  return Area{0, 0, screen_.Height() - 1, screen_.Width()}.Within(0, 1);
}

Form* ScreenFrontEnd::Top() const {
  for (auto shown = desk_.forms.rbegin(); shown != desk_.forms.rend(); ++shown) {
    if (IsUp(*shown->form)) return shown->form;
  }
  return nullptr;
}

int ScreenFrontEnd::WidestWindow() const {
  return std::min(kWidestWindow, PageArea().width - 2 * kFrameColumns);
}

// A menu opens where it was asked for, as far as it fits; other windows stand in the middle.
Area ScreenFrontEnd::WindowArea(const Form& form) const {
  const Area page = PageArea();
  const int widest = WidestWindow();
  CellSize size = SizeOf(form, widest);
  const int title = DisplayWidth(Displayable(form.Caption().View()));
  size.width = std::clamp(size.width, std::min(title + 2, widest), widest);
  Area area{0, 0, std::min(size.height + 2 * kFrameRows, page.height),
            size.width + 2 * kFrameColumns};
  if (&form == menu_) {
    area.row = std::clamp(menu_row_, 0, page.height - area.height);
    area.column = std::clamp(menu_column_, 0, screen_.Width() - area.width);
  } else {
    area.row = (page.height - area.height) / 2;
    area.column = (screen_.Width() - area.width) / 2;
  }
  return area;
}

Layout ScreenFrontEnd::LayoutOf(const Form& form) const {
  if (&form == desk_.main_window) return LayOut(form, PageArea());
  return LayOutScrolled(form, WindowArea(form).Within(kFrameRows, kFrameColumns),
                        &form == top_ ? scrolled_ : 0);
}

void ScreenFrontEnd::LookAtTop() {
  if (Form* top = Top(); top != top_) {
    top_ = top;
    scrolled_ = 0;
  }
  layout_ = top_ == nullptr ? Layout() : LayoutOf(*top_);
  reachable_ = Reachable(layout_);
  focused_ = top_ == nullptr ? nullptr : focus_[top_].Keep(reachable_);
}

void ScreenFrontEnd::Draw() {
  last_draw_ = Clock::now();
  LookAtTop();
  screen_.Clear();
  if (IsTooSmall()) {
    screen_.Put(0, 0,
                "Tidemark needs " + std::to_string(kLeastWidth) + " columns and " +
                    std::to_string(kLeastHeight) + " rows;");
    screen_.Put(1, 0,
                "here are " + std::to_string(screen_.Width()) + " and " +
                    std::to_string(screen_.Height()) + ". q leaves");
  } else {
    Painter painter(screen_, desk_.scroll, range_);
    if (desk_.MainIsUp() && !IsUp(*desk_.main_window)) {
      screen_.Put(1, 2, Displayable(desk_.main_window->Caption().View()), Style::kStrong);
      screen_.Put(
          3, 2,
          desk_.main_window->Visible() ? "The window is minimised." : "The window is hidden.");
      screen_.Put(4, 2,
                  desk_.tray.empty() ? "Enter brings it back, q leaves."
                                     : "Enter brings it back, m opens its menu, q leaves.");
    }
    for (const Desk::ShownForm& shown : desk_.forms) {
      const Form& form = *shown.form;
      if (!IsUp(form)) continue;
      if (&form != desk_.main_window) {
        const Area area = WindowArea(form);
        painter.PaintFrame(area, form.Caption().View());
        if (&form == top_ && scrolled_ < layout_.most_scrolled) {
          screen_.Put(area.row + area.height - 1, area.column + 2, " Down: more ", Style::kTitle);
        }
      }
      painter.PaintControls(&form == top_ ? layout_ : LayoutOf(form),
                            &form == top_ ? focused_ : nullptr);
    }
    DrawStatus();
  }
  screen_.Show();
}

Area ScreenFrontEnd::TrayArea() const {
  if (desk_.tray.empty()) return {};
  const int width = DisplayWidth(Displayable(TipOf(desk_.tray.front()))) + 2;
  return {screen_.Height() - 1, screen_.Width() - width, 1, width};
}

void ScreenFrontEnd::DrawStatus() {
  const Area line{screen_.Height() - 1, 0, 1, screen_.Width()};
  screen_.Fill(line, Style::kStatus);
  int right = line.width;
  if (const Area tray = TrayArea(); tray.width > 0) {
    right = tray.column - 1;
    screen_.Put(line.row, tray.column, "[" + Displayable(TipOf(desk_.tray.front())) + "]",
                Style::kStatus);
  }
  const Form* main = desk_.main_window;
  if (const int percent = main->Progress ? main->Progress() : -1; percent >= 0) {
    const std::string progress = "working " + std::to_string(percent) + " %";
    right -= static_cast<int>(progress.size()) + 1;
    screen_.Put(line.row, right, progress, Style::kStatus);
  }
  if (entry_ == Entry::kNone) {
    const std::string text = notice_.empty() ? Hint(right - 2) : notice_;
    screen_.Put(line.row, 1, Fit(Displayable(text), right - 2), Style::kStatus);
    return;
  }
  const std::string before = entry_ == Entry::kCommand ? ":" : "Find: ";
  const std::string typed = Displayable(entry_text_.Text().View());
  const std::string behind = notice_.empty() ? std::string() : "   (" + notice_ + ")";
  screen_.Put(line.row, 1, Fit(before + typed + behind, right - 2), Style::kStatus);
  const auto caret = static_cast<std::size_t>(entry_text_.SelStart());
  screen_.PutCursor(
      line.row, 1 + DisplayWidth(before + Displayable(entry_text_.Text().View().substr(0, caret))));
}

std::string ScreenFrontEnd::Hint(int width) const {
  if (focused_ == nullptr) return top_ == nullptr ? "Enter: the window   q: leave" : "";
  std::vector<std::string> keys;
  const bool typing = dynamic_cast<const TextBox*>(focused_) != nullptr;
  const std::vector<Control*> controls = ControlsOf(reachable_);
  if (const auto list = RowsOf(*focused_)) {
    if (list->HasCheckBoxes()) keys.emplace_back("Space: tick");
    if (list->CanBeOpened()) keys.emplace_back("Enter: open");
    if (list->HasMenu()) keys.emplace_back("m: menu");
    keys.emplace_back("/: find");
  } else if (typing) {
    const CommandButton* button = FindButton(controls, &CommandButton::Default);
    if (button != nullptr) keys.push_back("Enter: " + ControlText(*button));
  } else {
    keys.emplace_back(MarkOf(*focused_).empty() ? "Enter: press" : "Space: change");
    keys.emplace_back("Arrows: move");
  }
  keys.emplace_back("Tab: next");
  if (!typing) keys.emplace_back("?: help");
  if (const CommandButton* button = FindButton(controls, &CommandButton::Cancel)) {
    keys.push_back("Esc: " + ControlText(*button));
  } else if (top_ == menu_) {
    keys.emplace_back("Esc: close");
  } else if (top_ == desk_.main_window && !typing) {
    keys.emplace_back("q: leave");
  }
  // What is left out first is what one would try anyway.
  const auto joined = [&keys] {
    std::string hint;
    for (const std::string& key : keys) hint += (hint.empty() ? "" : "   ") + key;
    return hint;
  };
  while (keys.size() > 3 && DisplayWidth(joined()) > width) keys.erase(keys.end() - 3);
  return joined();
}

}  // namespace tidemark
