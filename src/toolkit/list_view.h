// The platform's list view in its report form: rows with a key, a text and the texts of the further
// columns, a check mark, a small icon. A row is a record of the program; there is no model beneath.
//
// By position and by key a row is found in constant time, and a row stays where it is in memory
// until it is removed or the list cleared. Rows are counted from 1, as on the platform.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/control.h"
#include "toolkit/picture.h"

namespace tidemark {

// What a column's texts are compared as.
enum class SortAs { kText, kNumber, kDate };

struct ColumnHeader {
  Text text;
  int width_twips = 0;
  Text tag;
  SortAs sort_as = SortAs::kText;
};

class ListItem {
 public:
  static constexpr int kMaxSubItems = 6;

  const Text& Key() const { return key_; }
  const Text& Caption() const { return texts_[0]; }
  void SetCaption(Text text) { texts_[0] = std::move(text); }
  // Columns behind the first, from 1 to kMaxSubItems; another index gives an empty text.
  const Text& SubItem(int index) const;
  void SetSubItem(int index, Text text);
  bool Checked() const { return checked_; }
  void SetChecked(bool checked) { checked_ = checked; }
  // Number of a picture in the list's image list, from 1; 0 is none.
  int SmallIcon() const { return small_icon_; }
  void SetSmallIcon(int icon) { small_icon_ = icon; }
  // Whether it is the selected row, or one of them.
  bool Selected() const { return selected_; }

 private:
  friend class ListView;
  Text key_;
  std::array<Text, kMaxSubItems + 1> texts_;
  int small_icon_ = 0;
  bool checked_ = false;
  bool selected_ = false;
};

enum class SortOrder { kAscending = 0, kDescending = 1 };

class ListView : public Control {
 public:
  using Control::Control;

  std::vector<ColumnHeader> columns;
  // Whether the columns' headings are shown on a screen; a table of texts always has them.
  bool headings = true;
  // How far a window has scrolled it to the right, in pixels.
  int scrolled_pixels = 0;
  bool check_boxes = false;
  // Whether several rows can be selected; SelectedItem is then the one that bears the focus.
  bool multi_select = false;
  // The image list of the small icons: files below the program's folder, "\\images\\...", number 1
  // first.
  std::vector<std::string> small_icons;

  // The picture behind the rows; empty for none. A file that is missing leaves the old picture.
  const std::string& PictureFile() const { return picture_.File(); }
  void LoadPicture(const std::string& file) { picture_.Load(file); }
  // Where the picture lies, by the platform's numbers: 0 top left, 5 tiled.
  int PictureAlignment() const { return picture_alignment_; }
  void SetPictureAlignment(int alignment) { picture_alignment_ = alignment; }

  Event<> ContextMenu;  // the right mouse button, or the menu key, on the selected row
  Event<> Clicked;      // a click on a row, which is then the selected one
  Event<ListItem&> ItemChecked;
  Event<int> ColumnClicked;  // the column, from 1
  Event<> DoubleClicked;
  Event<> MouseUp;

  int Count() const { return static_cast<int>(order_.size()); }
  // From 1 to Count(); null for another index.
  ListItem* Item(int index);
  const ListItem* Item(int index) const { return const_cast<ListView*>(this)->Item(index); }
  // 0 when it is no row of the list. Walks the list.
  int IndexOf(const ListItem* item) const;
  // Null when no row has the key. An empty key is no key.
  ListItem* Item(std::string_view key);

  // Adds a row at the end, or where the sort order puts it. Null, and nothing is added, when the
  // key is taken.
  ListItem* Add(Text key, Text caption);
  // Takes the row at the index (from 1) out of the list; no row, nothing. The others stay where
  // they are in memory, and so does this one, without a key and a place, until the list is cleared.
  void Remove(int index);
  void Clear();
  // How often the list has been cleared. Rows and their numbers mean nothing beyond the next time.
  unsigned TimesCleared() const { return times_cleared_; }

  ListItem* SelectedItem() const { return selected_; }
  void Select(ListItem* item);
  // All that are selected, in the order in which they were.
  const std::vector<ListItem*>& SelectedRows() const { return selected_rows_; }
  // What a person copies: the shown columns of the selected rows as they stand in the list, a tab
  // between them, a line for each row. Tabs and line ends in a text become blanks.
  std::string SelectedText() const;
  // The row that is to be scrolled into view; a front end shows it at its next repaint.
  ListItem* VisibleItem() const { return ensure_visible_; }
  void EnsureVisible(ListItem* item) { ensure_visible_ = item; }

  // Sorting compares the texts of column sort_key (0 is the first), letter case ignored, or what
  // the column says that they are, where a text that is none comes first; rows with equal texts
  // keep their order. Switching it on sorts at once; SortBy sorts again when it is on.
  int SortKey() const { return sort_key_; }
  SortOrder Order() const { return sort_order_; }
  bool Sorted() const { return sorted_; }
  void SortBy(int sort_key, SortOrder order);
  void SetSorted(bool sorted);
  // Takes a row to where it belongs after its texts have changed; does nothing while it is off.
  void PutInOrder(ListItem* row);
  // As a click on a column's heading (from 1) is answered: ascending first, then in turns; the
  // column's tag, "A" or "D", remembers. Another column does nothing.
  void SortInTurns(int column);

  // As a person does it: each changes the list, then raises the event. A disabled list does
  // nothing.
  void UserSelect(ListItem& item);
  // Selects these rows (by number), of which `current` (0: none) has the focus; where only one row
  // can be selected, that one. Nothing is raised when they are selected already.
  void UserSelectRows(const std::vector<int>& rows, int current);
  void UserCheck(ListItem& item, bool checked);
  // Turns the row's tick over; where it is one of several selected rows, they all become alike.
  void UserToggle(ListItem& item);
  void UserColumnClick(int column);
  void UserDoubleClick();
  // Selects the row first when there is one.
  void UserContextMenu(ListItem* item);

 private:
  // Open addressing over the keys of rows_, a power of two in size. The hash stands beside the row,
  // so that neither a search nor growing touches rows of other keys.
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t row = 0;  // a row's number plus 1; 0 is a free slot
  };

  static std::uint32_t HashOf(std::string_view key);
  // The slot that holds the key's row, or the free slot where it would go.
  std::size_t FindSlot(std::string_view key, std::uint32_t hash) const;
  void GrowIndex();
  bool Before(const ListItem& left, const ListItem& right) const;
  SortAs SortsAs() const;
  void SortRows();
  void Insert(ListItem* row);

  std::deque<ListItem> rows_;     // in the order they were added
  std::vector<ListItem*> order_;  // as they stand in the list
  std::vector<Slot> index_;
  ListItem* selected_ = nullptr;
  std::vector<ListItem*> selected_rows_;
  ListItem* ensure_visible_ = nullptr;
  Picture picture_;
  int picture_alignment_ = 0;
  unsigned times_cleared_ = 0;
  int sort_key_ = 0;
  SortOrder sort_order_ = SortOrder::kAscending;
  bool sorted_ = false;
};

}  // namespace tidemark
