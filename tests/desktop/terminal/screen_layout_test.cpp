// Where the controls of the pages stand on a screen.
#include <map>
#include <set>

#include "desktop/terminal/screen/layout.h"
#include "desktop/terminal/screen/list_acts.h"
#include "tests/desktop/terminal/pages_test.h"
#include "toolkit/reading_order.h"
#include "window/dialogs.h"

namespace tidemark {
namespace {

struct ScreenLayoutTest : PagesTest {};

bool Meet(const Area& left, const Area& right) {
  return left.row < right.row + right.height && right.row < left.row + left.height &&
         left.column < right.column + right.width && right.column < left.column + left.width;
}

TEST_F(ScreenLayoutTest, EveryPageFitsFromSixtyColumnsOnAndNothingOverlaps) {
  for (const std::vector<Control*>& panels : Pages()) {
    Turn(panels);
    for (const Area& area : {Area{0, 1, 19, 58}, Area{0, 1, 23, 78}, Area{0, 1, 59, 198}}) {
      const Layout layout = LayOut(window.form, area);
      ASSERT_GT(layout.controls.size(), 5U);
      for (std::size_t i = 0; i < layout.controls.size(); ++i) {
        const Control* control = layout.controls[i].control;
        const Area& place = layout.controls[i].area;
        EXPECT_TRUE(place.row >= area.row && place.row + place.height <= area.row + area.height &&
                    place.column + place.width <= area.column + area.width)
            << control->Name() << " in " << area.width;
        EXPECT_GE(place.height, HasRows(*control) ? 3 : 1) << control->Name();
        for (std::size_t j = 0; j < i; ++j) {
          // A panel lies over its list.
          const bool framed = i >= layout.framed_from && j < layout.framed_from;
          EXPECT_TRUE(framed || !Meet(place, layout.controls[j].area))
              << control->Name() << " and " << layout.controls[j].control->Name();
        }
      }
    }
  }
}

TEST_F(ScreenLayoutTest, ListsStandBesideTheirButtonsAndTakeTheRoom) {
  Turn({&window.picJunkCriteria});
  const Layout layout = LayOut(window.form, {0, 1, 39, 118});
  const auto place_of = [&layout](const Control& control) {
    for (const PlacedControl& placed : layout.controls) {
      if (placed.control == &control) return placed.area;
    }
    return Area{};
  };
  const Area drives = place_of(window.tvDrives);
  const Area types = place_of(window.lvFileTypes);
  const Area folders = place_of(window.lvExcludeFolders);
  EXPECT_EQ(drives.row, types.row);
  EXPECT_LT(drives.column + drives.width, types.column);
  EXPECT_EQ(place_of(window.cmdFileTypes(0)).row, types.row);
  EXPECT_EQ(place_of(window.cmdExcludeFolders(0)).row, folders.row);
  EXPECT_GT(types.height + folders.height, 30);
}

TEST_F(ScreenLayoutTest, ATextTooLongForAWindowScrollsAboveItsButton) {
  const frmHelp help{Application{}};
  const Area area{1, 4, 10, 52};
  const int most = LayOutScrolled(help.form, area, 0).most_scrolled;
  ASSERT_GT(most, 5);
  std::map<const Control*, std::set<int>> seen;
  for (int scrolled = 0; scrolled <= most + 1; ++scrolled) {
    int end = area.row;
    for (const PlacedControl& placed : LayOutScrolled(help.form, area, scrolled).controls) {
      EXPECT_GE(placed.area.row, end);
      end = placed.area.row + placed.area.height;
      for (int line = 0; line < placed.area.height; ++line) {
        seen[placed.control].insert(placed.first_line + line);
      }
    }
    EXPECT_EQ(end, area.row + area.height) << "the button is at the lower edge";
  }
  for (const Control* control : help.form.Controls()) {
    const auto* label = dynamic_cast<const Label*>(control);
    if (label == nullptr) continue;
    EXPECT_EQ(seen[label].size(), LabelLines(*label, area.width).size()) << label->Caption().View();
  }
}

TEST_F(ScreenLayoutTest, ARangeIsTickedAsItsLastRowAndFoundRowsAreSelected) {
  window.lvProblems.check_boxes = true;
  const auto list = RowsOf(window.lvProblems);
  ScrollPositions scroll;
  const ListShape shape = ShapeOf(*list, {0, 0, 12, 60}, scroll);
  ListRange range;
  list->UserSelect(3);
  for (int step = 0; step < 2; ++step) MoveInList(*list, shape, range, Key::kShiftDown);
  TickInList(*list, shape, range);
  for (int row = 1; row <= 7; ++row) EXPECT_EQ(list->Checked(row), row >= 3 && row <= 5) << row;

  EXPECT_TRUE(FindInList(*list, "ROW 39", FindFrom::kHere));
  EXPECT_EQ(SelectedRow(*list), 40);
  EXPECT_TRUE(FindInList(*list, "row 1", FindFrom::kNext));
  EXPECT_EQ(SelectedRow(*list), 2) << "round the end";
  EXPECT_TRUE(FindInList(*list, "row 1", FindFrom::kPrevious));
  EXPECT_EQ(SelectedRow(*list), 20);
  EXPECT_FALSE(FindInList(*list, "nowhere", FindFrom::kNext));

  window.lvProblems.Clear();
  EXPECT_FALSE(range.IsOf(*list));
  TickInList(*list, shape, range);
  EXPECT_TRUE(MoveInList(*list, shape, range, Key::kEnd));
  EXPECT_FALSE(FindInList(*list, "", FindFrom::kPrevious));
}

}  // namespace
}  // namespace tidemark
