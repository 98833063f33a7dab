#include "desktop/terminal/script/page.h"

#include <algorithm>
#include <string>

#include "desktop/terminal/script/list_table.h"
#include "desktop/terminal/script/sketch.h"
#include "toolkit/reading_order.h"

namespace tidemark {
namespace {

constexpr int kMostRows = 20;
constexpr int kDialogFrame = 8;

void Append(Lines& page, const Lines& lines) {
  page.insert(page.end(), lines.begin(), lines.end());
}

// A blank line, where there is none.
void SetApart(Lines& page) {
  if (!page.empty() && !page.back().IsEmpty()) page.emplace_back();
}

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

void AddList(Lines& page, const Rows& list, ScrollPositions& scroll, int width) {
  const int rows = std::min(kMostRows, list.Count());
  SetApart(page);
  Append(page, ListTable(list, scroll.FirstRow(list, rows), rows, width));
  SetApart(page);
}

Lines Compose(Sketch sketch, ScrollPositions& scroll, int width) {
  JoinNeighbours(sketch.blocks, width);
  Lines page;
  for (Block& block : sketch.blocks) {
    if (block.list != nullptr) {
      AddList(page, *block.list, scroll, width);
    } else if (block.panel != nullptr) {
      Append(page,
             Boxed({}, Compose(std::move(*block.panel), scroll, width - kDialogFrame), width));
    } else {
      Append(page, InRows(block.chips, width));
    }
    for (const Line& line : block.lines) page.emplace_back(" ").Append(line);
  }
  if (sketch.buttons.empty()) return page;
  SetApart(page);
  Append(page, InRows(sketch.buttons, width));
  return page;
}

// The notification area is always in sight; it brings back a window that is not.
Lines TrayLines(const Desk& desk) {
  Lines lines;
  for (const TrayIcon& icon : desk.tray) {
    Line& line = lines.emplace_back(" tray: [").Add(TipOf(icon));
    line.Add("]   tray left: the window; tray right: its menu when minimised");
  }
  return lines;
}

Lines PrintForm(const Form& form, Desk& desk, int width) {
  Lines page;
  page.emplace_back(" ").Add(form.Caption().View());
  if (!form.Visible() || form.State() == WindowState::kMinimized) {
    page.back().Add(form.Visible() ? " (minimised)" : " (hidden)");
    Append(page, TrayLines(desk));
    return page;
  }
  Sketch sketch = MakeSketch(form, width);
  Lines page_buttons = InRows(sketch.page_buttons, width);
  if (page_buttons.size() > 1) page_buttons = InRows(sketch.page_buttons, width, true);
  for (const Lines& part :
       {page_buttons, Compose(std::move(sketch), desk.scroll, width), TrayLines(desk)}) {
    if (!part.empty()) SetApart(page);
    Append(page, part);
  }
  return page;
}

Lines PrintDialog(const Form& form, ScrollPositions& scroll, int width) {
  const int inner = width - kDialogFrame;
  return Boxed(form.Caption().View(), Compose(MakeSketch(form, inner), scroll, inner), width);
}

}  // namespace

Lines PrintDesk(Desk& desk, int width) {
  Lines page;
  if (desk.MainIsUp()) page = PrintForm(*desk.main_window, desk, width);
  if (const Form* form = desk.Dialog(); form != nullptr && form->Visible()) {
    Append(page, PrintDialog(*form, desk.scroll, width));
  }
  return page;
}

}  // namespace tidemark
