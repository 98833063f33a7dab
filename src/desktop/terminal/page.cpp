#include "desktop/terminal/page.h"

#include <algorithm>
#include <string>

#include "controls/xp_progress_bar.h"
#include "desktop/terminal/display_text.h"

namespace tidemark {
namespace {

constexpr int kRowsOnEndlessPage = 20;
constexpr int kFewestRows = 3;

// A piece of a page: lines, or a list that becomes lines when its share of the page is known.
struct Block {
  Lines lines;
  const ListView* list = nullptr;
  int top = 0;         // of the control, in twips
  bool joins = false;  // stands beside the block before it when both have the same top
};

struct Sketch {
  std::vector<Block> blocks;
  std::vector<Line> page_buttons;
  std::vector<Line> buttons;
};

bool HasPlace(const Control& control) {
  return control.Place().width > 0 && control.Place().height > 0;
}

bool IsSamePlace(const Bounds& left, const Bounds& right) {
  return left.left == right.left && left.top == right.top && left.width == right.width &&
         left.height == right.height;
}

// Beyond the window's client area nothing is seen.
bool IsOutside(const Control& control) {
  const Control* container = control.Container();
  if (container == nullptr || !HasPlace(control) || !HasPlace(*container)) return false;
  return control.Place().top >= container->Place().height ||
         control.Place().left >= container->Place().width;
}

// A list that a later one at the same place hides.
bool IsCovered(const Control& control) {
  const auto& siblings = control.Container()->Controls();
  const auto behind = std::find(siblings.begin(), siblings.end(), &control);
  return HasPlace(control) &&
         std::any_of(behind + 1, siblings.end(), [&control](const Control* other) {
           return dynamic_cast<const ListView*>(other) != nullptr && other->Visible() &&
                  IsSamePlace(other->Place(), control.Place());
         });
}

std::vector<Control*> InReadingOrder(const Control& container) {
  std::vector<Control*> controls = container.Controls();
  std::stable_sort(controls.begin(), controls.end(), [](const Control* left, const Control* right) {
    const Bounds& a = left->Place();
    const Bounds& b = right->Place();
    return a.top != b.top ? a.top < b.top : a.left < b.left;
  });
  return controls;
}

void AddText(Sketch& sketch, const Control& control, Lines lines, bool joins) {
  sketch.blocks.push_back({.lines = std::move(lines),
                           .list = nullptr,
                           .top = control.Place().top,
                           .joins = joins && HasPlace(control)});
}

Line Bar(const XP_ProgressBar& bar, int width) {
  const int percent = std::clamp(bar.Percent(), 0, 100);
  const int columns = std::clamp(width - 12, 10, 60);
  std::string filled;
  std::string empty;
  for (int column = 0; column < columns; ++column) {
    (column < columns * percent / 100 ? filled : empty) +=
        column < columns * percent / 100 ? "█" : "░";
  }
  Line line;
  line.Add(filled, Style::kNotice).Add(empty, Style::kFaint);
  return std::move(line.Add(" ").Add(std::to_string(percent)).Add(" %"));
}

Line ButtonLine(const Control& control, std::string_view caption, bool chosen = false) {
  const bool enabled = control.Enabled();
  Line line("[ ", Style::kFaint);
  line.Add(control.Name(), chosen ? Style::kChosen : enabled ? Style::kNotice : Style::kFaint);
  if (!caption.empty()) line.Add(" ").Add(caption, enabled ? Style::kStrong : Style::kFaint);
  return std::move(line.Add(" ]", Style::kFaint));
}

// An image box named as a button is a page button when it lies on the window itself. The picture of
// the page that is up is the second one of its button.
void AddImage(Sketch& sketch, const ImageBox& image) {
  const std::string_view picture = FileTitle(image.PictureFile());
  if (image.Name().starts_with("cmd")) {
    const bool chosen = picture.ends_with('2');
    sketch.page_buttons.emplace_back(chosen ? "[" : " ")
        .Add(image.Name(), chosen ? Style::kChosen : Style::kNotice)
        .Add(chosen ? "]" : " ");
  } else if (!picture.empty()) {
    Line line("(", Style::kStrong);
    line.Add(picture, Style::kStrong).Add(")", Style::kStrong);
    AddText(sketch, image, {line}, true);
  }
}

void AddLabel(Sketch& sketch, const Label& label, int width) {
  constexpr unsigned kWhite = 0xFFFFFF;
  if (label.Caption().empty()) {
    // A click area over a picture.
    if (label.Clicked.IsBound()) {
      sketch.buttons.push_back(ButtonLine(label, {}, label.BackColor() == kWhite));
    }
    return;
  }
  Lines lines;
  for (const std::string& text : Wrap(label.Caption().View(), width - 1)) lines.emplace_back(text);
  AddText(sketch, label, std::move(lines), true);
}

void AddControls(Sketch& sketch, const Control& container, int width);

void AddControl(Sketch& sketch, const Control& control, int width) {
  if (const auto* list = dynamic_cast<const ListView*>(&control)) {
    if (!IsCovered(control)) {
      sketch.blocks.push_back({.lines = {}, .list = list, .top = 0, .joins = false});
    }
  } else if (const auto* bar = dynamic_cast<const XP_ProgressBar*>(&control)) {
    if (bar->Percent() > 0) AddText(sketch, control, {Bar(*bar, width)}, false);
  } else if (const auto* box = dynamic_cast<const CheckBox*>(&control)) {
    Line line(box->Value() == 1 ? "[x] " : "[ ] ");
    line.Add(box->Name(), Style::kNotice).Add(" ").Add(box->Caption().View());
    AddText(sketch, control, {line}, false);
  } else if (const auto* button = dynamic_cast<const CommandButton*>(&control)) {
    if (button->Enabled()) sketch.buttons.push_back(ButtonLine(*button, button->Caption().View()));
  } else if (const auto* label = dynamic_cast<const Label*>(&control)) {
    AddLabel(sketch, *label, width);
  } else if (dynamic_cast<const PictureBox*>(&control) != nullptr) {
    AddControls(sketch, control, width);
  } else if (const auto* image = dynamic_cast<const ImageBox*>(&control)) {
    AddImage(sketch, *image);
  }
}

void AddControls(Sketch& sketch, const Control& container, int width) {
  for (const Control* control : InReadingOrder(container)) {
    if (control->Visible() && !IsOutside(*control)) AddControl(sketch, *control, width);
  }
}

Lines InRows(const std::vector<Line>& items, int width) {
  Lines rows;
  for (const Line& item : items) {
    if (rows.empty() || rows.back().Width() + item.Width() + 2 > width) {
      rows.emplace_back(" ");
    } else {
      rows.back().Add("  ");
    }
    rows.back().Append(item);
  }
  return rows;
}

// Texts of one height in the window stand in one line.
void JoinNeighbours(std::vector<Block>& blocks) {
  std::vector<Block> joined;
  for (Block& block : blocks) {
    const bool fits = !joined.empty() && joined.back().joins && block.joins &&
                      joined.back().top == block.top && joined.back().lines.size() == 1 &&
                      block.lines.size() == 1;
    if (fits) {
      joined.back().lines[0].Add("   ").Append(block.lines[0]);
    } else {
      joined.push_back(std::move(block));
    }
  }
  blocks = std::move(joined);
}

int LineCount(const Block& block) { return static_cast<int>(block.lines.size()); }

// How many rows each list shows: small lists all of theirs, the others share what is left.
void DrawLists(std::vector<Block>& blocks, ScrollPositions& scroll, const PageSize& size,
               int rows_left) {
  std::vector<Block*> lists;
  for (Block& block : blocks) {
    if (block.list != nullptr) lists.push_back(&block);
  }
  std::stable_sort(lists.begin(), lists.end(), [](const Block* left, const Block* right) {
    return left->list->Count() < right->list->Count();
  });
  int waiting = static_cast<int>(lists.size());
  for (Block* block : lists) {
    const int share =
        size.height == 0 ? kRowsOnEndlessPage : std::max(kFewestRows, rows_left / waiting);
    const int rows = std::min(share, block->list->Count());
    const int first = scroll.FirstRow(*block->list, rows);
    block->lines = ListTable(*block->list, first, rows, size.width);
    rows_left -= rows;
    --waiting;
  }
}

// The blank lines that set a page apart go first when it gets narrow.
Lines Compose(Sketch sketch, ScrollPositions& scroll, const PageSize& size) {
  JoinNeighbours(sketch.blocks);
  const Lines buttons = InRows(sketch.buttons, size.width);
  int fixed = static_cast<int>(buttons.size());
  int wanted_rows = 0;
  int gaps = 1;
  for (const Block& block : sketch.blocks) {
    fixed += block.list != nullptr ? kTableHeadLines : LineCount(block);
    gaps += block.list != nullptr ? 2 : 0;
    wanted_rows += block.list != nullptr ? std::min(block.list->Count(), 6) : 0;
  }
  const bool airy = size.height == 0 || fixed + gaps + wanted_rows <= size.height;
  DrawLists(sketch.blocks, scroll, size, size.height - fixed - (airy ? gaps : 0));

  Lines page;
  const auto gap = [&] {
    if (airy && !page.empty() && !page.back().IsEmpty()) page.emplace_back();
  };
  for (const Block& block : sketch.blocks) {
    if (block.list != nullptr) gap();
    for (const Line& line : block.lines) {
      Line indented(block.list != nullptr ? "" : " ");
      indented.Append(line);
      page.push_back(std::move(indented));
    }
    if (block.list != nullptr) gap();
  }
  if (!buttons.empty()) gap();
  page.insert(page.end(), buttons.begin(), buttons.end());
  return page;
}

Lines DrawForm(const Form& form, ScrollPositions& scroll, const PageSize& size) {
  Lines head;
  head.emplace_back(" ").Add(form.Caption().View(), Style::kStrong);
  if (form.State() == WindowState::kMinimized) {
    head.emplace_back(" (minimised)", Style::kFaint);
    return head;
  }
  Sketch sketch;
  AddControls(sketch, form, size.width);
  if (!sketch.page_buttons.empty()) {
    head.emplace_back();
    const Lines tabs = InRows(sketch.page_buttons, size.width);
    head.insert(head.end(), tabs.begin(), tabs.end());
  }
  head.emplace_back();
  const int head_lines = static_cast<int>(head.size());
  const int height = size.height == 0 ? 0 : std::max(1, size.height - head_lines);
  const Lines body = Compose(std::move(sketch), scroll, {.width = size.width, .height = height});
  head.insert(head.end(), body.begin(), body.end());
  return head;
}

Lines DrawDialog(const Form& form, ScrollPositions& scroll, int width) {
  Sketch sketch;
  AddControls(sketch, form, width - 8);
  return Boxed(form.Caption().View(), Compose(std::move(sketch), scroll, {.width = width - 8}),
               width);
}

// Lays the upper lines over the middle of the lower ones.
void Overlay(Lines& lower, const Lines& upper, int height) {
  lower.resize(std::max(lower.size(), std::min(upper.size(), static_cast<std::size_t>(height))));
  const std::size_t room = lower.size() > upper.size() ? lower.size() - upper.size() : 0;
  const std::size_t first = room / 2;
  for (std::size_t i = 0; i < upper.size() && first + i < lower.size(); ++i) {
    lower[first + i] = upper[i];
  }
}

}  // namespace

Lines DrawDesk(Desk& desk, const PageSize& size) {
  Lines page;
  if (desk.main_window != nullptr && desk.main_window->Visible()) {
    page = DrawForm(*desk.main_window, desk.scroll, size);
  }
  const Form* dialog = desk.Dialog();
  if (dialog == nullptr || !dialog->Visible()) return page;
  const Lines box = DrawDialog(*dialog, desk.scroll, size.width);
  if (size.height > 0) {
    Overlay(page, box, size.height);
  } else {
    page.insert(page.end(), box.begin(), box.end());
  }
  return page;
}

}  // namespace tidemark
