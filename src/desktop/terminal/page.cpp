#include "desktop/terminal/page.h"

#include <algorithm>
#include <string>

#include "desktop/terminal/reading_order.h"
#include "desktop/terminal/sketch.h"

namespace tidemark {
namespace {

constexpr int kRowsOnEndlessPage = 20;
constexpr int kFewestRows = 3;
constexpr int kDialogFrame = 8;

int LineCount(const Lines& lines) { return static_cast<int>(lines.size()); }

// Texts of one height in the window stand in one line.
void JoinNeighbours(std::vector<Block>& blocks, int width) {
  std::vector<Block> joined;
  for (Block& block : blocks) {
    const bool one_line = !joined.empty() && joined.back().text != nullptr &&
                          block.text != nullptr && joined.back().lines.size() == 1 &&
                          block.lines.size() == 1;
    if (one_line && IsSameLine(*joined.back().text, *block.text) &&
        joined.back().lines[0].Width() + block.lines[0].Width() + 4 <= width) {
      joined.back().lines[0].Add("   ").Append(block.lines[0]);
    } else {
      joined.push_back(std::move(block));
    }
  }
  blocks = std::move(joined);
}

// A page before it is known how many rows its lists show.
struct Draft {
  std::vector<Block> blocks;
  Lines buttons;
  int fixed_lines = 0;
  int gaps = 0;  // the blank lines that set its parts apart
  int wanted_rows = 0;
};

Lines Compose(const Draft& draft, ScrollPositions& scroll, const PageSize& size, bool airy);

Draft MakeDraft(Sketch sketch, ScrollPositions& scroll, int width) {
  Draft draft;
  JoinNeighbours(sketch.blocks, width);
  draft.blocks = std::move(sketch.blocks);
  draft.buttons = InRows(sketch.buttons, width);
  draft.fixed_lines = LineCount(draft.buttons);
  draft.gaps = draft.buttons.empty() ? 0 : 1;
  for (Block& block : draft.blocks) {
    if (!block.chips.empty()) block.lines = InRows(block.chips, width);
    if (block.panel != nullptr) {
      const int inner = width - kDialogFrame;
      const Draft panel = MakeDraft(std::move(*block.panel), scroll, inner);
      block.lines = Boxed({}, Compose(panel, scroll, {.width = inner}, true), width);
    }
    draft.fixed_lines += block.list != nullptr ? TableHeadLines(*block.list) : 0;
    draft.fixed_lines += LineCount(block.lines);
    draft.gaps += block.list != nullptr ? 2 : 0;
    draft.wanted_rows += block.list != nullptr ? std::min(block.list->Count(), 6) : 0;
  }
  return draft;
}

// How many rows each list shows: small lists all of theirs, the others share what is left.
std::vector<int> ShareRows(const std::vector<Block>& blocks, const PageSize& size, int rows_left) {
  std::vector<std::size_t> lists;
  int fewest = 0;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    if (blocks[i].list == nullptr) continue;
    lists.push_back(i);
    fewest += std::min(kFewestRows, blocks[i].list->Count());
  }
  std::stable_sort(lists.begin(), lists.end(), [&blocks](std::size_t left, std::size_t right) {
    return blocks[left].list->Count() < blocks[right].list->Count();
  });
  const int least = fewest <= rows_left ? kFewestRows : 1;
  std::vector<int> rows(blocks.size(), 0);
  int waiting = static_cast<int>(lists.size());
  for (const std::size_t i : lists) {
    const int share = size.height == 0 ? kRowsOnEndlessPage : std::max(least, rows_left / waiting);
    rows[i] = std::min(share, blocks[i].list->Count());
    rows_left -= rows[i];
    --waiting;
  }
  return rows;
}

Lines Compose(const Draft& draft, ScrollPositions& scroll, const PageSize& size, bool airy) {
  const std::vector<int> rows =
      ShareRows(draft.blocks, size, size.height - draft.fixed_lines - (airy ? draft.gaps : 0));
  Lines page;
  const auto gap = [&] {
    if (airy && !page.empty() && !page.back().IsEmpty()) page.emplace_back();
  };
  for (std::size_t i = 0; i < draft.blocks.size(); ++i) {
    const Block& block = draft.blocks[i];
    if (block.list != nullptr) {
      gap();
      const int first = scroll.FirstRow(*block.list, rows[i]);
      const Lines table = ListTable(*block.list, first, rows[i], size.width);
      page.insert(page.end(), table.begin(), table.end());
      gap();
    }
    for (const Line& line : block.lines) {
      Line indented(block.chips.empty() && block.panel == nullptr ? " " : "");
      indented.Append(line);
      page.push_back(std::move(indented));
    }
  }
  // What can be pressed stays in sight on a page that is too long.
  const int room = std::max(1, size.height - LineCount(draft.buttons));
  if (size.height > 0 && LineCount(page) > room) {
    page.resize(static_cast<std::size_t>(room));
    page.back() = Line(" …", Style::kFaint);
  }
  if (!draft.buttons.empty()) gap();
  page.insert(page.end(), draft.buttons.begin(), draft.buttons.end());
  return page;
}

// The notification area is always in sight; it brings back a window that is not.
Lines TrayLines(const Desk& desk) {
  Lines lines;
  for (const TrayIcon& icon : desk.tray) {
    const std::string_view tip(icon.szTip.data(), icon.szTip.size());
    Line& line = lines.emplace_back(" tray: ", Style::kFaint);
    line.Add("[").Add(tip.substr(0, tip.find('\0'))).Add("]");
    line.Add("   tray left: the window; tray right: its menu when minimised", Style::kFaint);
  }
  return lines;
}

Lines DrawForm(const Form& form, Desk& desk, const PageSize& size) {
  const Lines tray = TrayLines(desk);
  Lines page;
  page.emplace_back(" ").Add(form.Caption().View(), Style::kStrong);
  if (!form.Visible() || form.State() == WindowState::kMinimized) {
    page.back().Add(form.Visible() ? " (minimised)" : " (hidden)", Style::kFaint);
    page.insert(page.end(), tray.begin(), tray.end());
    return page;
  }
  Sketch sketch = MakeSketch(form, size.width);
  Lines page_buttons = InRows(sketch.page_buttons, size.width);
  if (page_buttons.size() > 1) page_buttons = InRows(sketch.page_buttons, size.width, true);

  const Draft draft = MakeDraft(std::move(sketch), desk.scroll, size.width);
  const int frame = 1 + LineCount(page_buttons) + LineCount(tray);
  const int gaps = 1 + (page_buttons.empty() ? 0 : 1) + LineCount(tray);
  const bool airy =
      size.height == 0 ||
      draft.fixed_lines + draft.gaps + draft.wanted_rows + frame + gaps <= size.height;
  const int taken = frame + (airy ? gaps : 0);
  const int height = size.height == 0 ? 0 : std::max(1, size.height - taken);
  const auto add = [&page, airy](const Lines& lines) {
    if (airy && !lines.empty() && !page.back().IsEmpty()) page.emplace_back();
    page.insert(page.end(), lines.begin(), lines.end());
  };
  add(page_buttons);
  add(Compose(draft, desk.scroll, {.width = size.width, .height = height}, airy));
  add(tray);
  return page;
}

Lines DrawDialog(const Form& form, ScrollPositions& scroll, int width) {
  const int inner = width - kDialogFrame;
  const Draft draft = MakeDraft(MakeSketch(form, inner), scroll, inner);
  return Boxed(form.Caption().View(), Compose(draft, scroll, {.width = inner}, true), width);
}

// Puts the upper lines below the lower ones if there is room, else over their middle.
void Overlay(Lines& lower, const Lines& upper, int height) {
  const auto room = static_cast<std::size_t>(height);
  if (lower.size() + upper.size() <= room) {
    lower.insert(lower.end(), upper.begin(), upper.end());
    return;
  }
  lower.resize(std::max(lower.size(), std::min(upper.size(), room)));
  const std::size_t first = (std::max(lower.size(), upper.size()) - upper.size()) / 2;
  for (std::size_t i = 0; i < upper.size() && first + i < lower.size(); ++i) {
    lower[first + i] = upper[i];
  }
}

}  // namespace

Lines DrawDesk(Desk& desk, const PageSize& size) {
  Lines page;
  if (desk.MainIsUp()) page = DrawForm(*desk.main_window, desk, size);
  Lines dialog;
  if (const Form* form = desk.Dialog(); form != nullptr && form->Visible()) {
    dialog = DrawDialog(*form, desk.scroll, size.width);
  }
  if (size.height > 0) {
    Overlay(page, dialog, size.height);
    Overlay(page, desk.box, size.height);
  } else {
    page.insert(page.end(), dialog.begin(), dialog.end());
  }
  return page;
}

}  // namespace tidemark
