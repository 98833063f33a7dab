// Draws the controls of a window.
#pragma once

#include <string>

#include "desktop/terminal/screen/curses_screen.h"
#include "desktop/terminal/screen/layout.h"
#include "desktop/terminal/screen/list_acts.h"
#include "desktop/terminal/scroll_positions.h"
#include "toolkit/text_box.h"

namespace tidemark {

class Painter {
 public:
  Painter(CursesScreen& screen, ScrollPositions& scroll, const ListRange& range)
      : screen_(screen), scroll_(scroll), range_(range) {}

  // The control that has the focus may be null.
  void PaintControls(const Layout& layout, const Control* focused);
  // A window of its own.
  void PaintFrame(const Area& area, std::string_view title);

 private:
  void Paint(const PlacedControl& placed, bool focused);
  void PaintButton(const Control& control, const Area& area, bool focused);
  void PaintTab(const Control& control, const Area& area, bool focused);
  void PaintLabel(const Label& label, const PlacedControl& placed, bool focused);
  void PaintBar(int percent, const Area& area);
  void PaintTextBox(const TextBox& box, const Area& area, bool focused);
  void PaintList(const Rows& list, const Area& area, bool focused);
  void PaintListTitle(const Rows& list, const ListShape& shape, bool focused);
  void PaintRow(const Rows& list, const ListShape& shape, int row, bool focused);
  // A caption with its access key behind an "&", between two texts.
  void PutCaption(const Area& area, std::string_view before, std::string_view caption,
                  std::string_view behind, Style style);

  CursesScreen& screen_;
  ScrollPositions& scroll_;
  const ListRange& range_;
};

}  // namespace tidemark
