// What a person does at the screen, turned into the controls' events. The control may be gone when
// the handler of its event returns: an event is raised as the last act.
#include <algorithm>

#include "desktop/terminal/command_words.h"
#include "desktop/terminal/control_face.h"
#include "desktop/terminal/screen/screen_front_end.h"
#include "desktop/terminal/screen/text_editing.h"
#include "platform/letter_case.h"
#include "platform/unicode.h"
#include "toolkit/access_key.h"
#include "toolkit/focus.h"
#include "toolkit/reading_order.h"

namespace tidemark {
namespace {

constexpr char32_t kControlA = 1;
constexpr int kWheelRows = 3;
constexpr int kPageOfText = 10;

std::string AccessKeyOf(const Control& control) {
  return LowerCase(ShowCaption(AccessKeyText(control)).Key());
}

}  // namespace

void ScreenFrontEnd::Handle(const ScreenInput& input) {
  if (input.kind == ScreenInput::Kind::kNothing) return;
  if (input.kind == ScreenInput::Kind::kClose) CloseMain();
  last_draw_ = {};
  LookSoon();
  LookAtTop();
  if (input.kind == ScreenInput::Kind::kKey) OnKey(input);
  if (input.kind == ScreenInput::Kind::kMouse) OnMouse(input);
}

void ScreenFrontEnd::OnKey(const ScreenInput& input) {
  notice_.clear();
  if (IsTooSmall()) {
    if (input.character == 'q') CloseMain();
    return;
  }
  if (entry_ != Entry::kNone && OnEntryKey(input)) return;
  if (top_ == nullptr || focused_ == nullptr) return OnAwayKey(input);
  if (auto* box = dynamic_cast<TextBox*>(focused_); box != nullptr && EditText(*box, input)) return;
  if (HasRows(*focused_) && OnListKey(input)) return;
  if (OnCommonKey(input)) return;
  if (input.key == Key::kCharacter) OnLetter(input);
}

// Keys that go to no control: the main window is away, or a window has none.
void ScreenFrontEnd::OnAwayKey(const ScreenInput& input) {
  Form& window = *desk_.main_window;
  if (input.key == Key::kCharacter && input.character == 'q') return Leave(false);
  if (input.key == Key::kCharacter && input.character == ':') return BeginEntry(Entry::kCommand);
  if (top_ != nullptr) {
    if (input.key == Key::kEscape) OnEscape();
    return;
  }
  if (input.key == Key::kEnter) {
    if (!desk_.tray.empty()) return ClickTray(window, TrayClick::kLeft);
    if (window.Visible()) window.SetState(WindowState::kNormal);
  } else if (input.key == Key::kMenu || input.key == Key::kTray || input.character == 'm') {
    OpenTrayMenu();
  }
}

void ScreenFrontEnd::OpenTrayMenu() {
  const Area tray = TrayArea();
  menu_row_ = tray.row;
  menu_column_ = tray.column;
  if (!desk_.tray.empty()) ClickTray(*desk_.main_window, TrayClick::kRight);
}

bool ScreenFrontEnd::OnCommonKey(const ScreenInput& input) {
  FormFocus& focus = focus_[top_];
  switch (input.key) {
    case Key::kTab:
    case Key::kBackTab:
      focus.MoveByTab(reachable_, input.key == Key::kBackTab);
      return true;
    case Key::kUp:
      if (!ScrollTexts(-1)) focus.MoveByArrow(reachable_, Direction::kUp);
      return true;
    case Key::kDown:
      if (!ScrollTexts(1)) focus.MoveByArrow(reachable_, Direction::kDown);
      return true;
    case Key::kPageUp:
    case Key::kPageDown:
      return ScrollTexts(input.key == Key::kPageUp ? -kPageOfText : kPageOfText);
    case Key::kLeft:
      focus.MoveByArrow(reachable_, Direction::kLeft);
      return true;
    case Key::kRight:
      focus.MoveByArrow(reachable_, Direction::kRight);
      return true;
    case Key::kEnter:
      OnEnter();
      return true;
    case Key::kEscape:
      OnEscape();
      return true;
    case Key::kHelp:
      top_->Help.IsBound() ? top_->Help() : Help();
      return true;
    case Key::kTray:
      OpenTrayMenu();
      return true;
    default:
      return false;
  }
}

// False: there are no texts that scroll.
bool ScreenFrontEnd::ScrollTexts(int lines) {
  scrolled_ = std::clamp(scrolled_ + lines, 0, layout_.most_scrolled);
  return layout_.most_scrolled > 0;
}

bool ScreenFrontEnd::OnLetter(const ScreenInput& input) {
  if (input.character == ' ' && !input.alt) {
    OnSpace();
    return true;
  }
  // A question takes its own letters; what acts on the program is beside the point in it.
  const bool modal = top_ != desk_.main_window;
  if (OnAccessKey(input.character) || input.alt) return true;
  switch (input.character) {
    case '?':
      Help();
      return true;
    case 'q':
      modal ? OnEscape() : Leave(false);
      return true;
    case ':':
      BeginEntry(Entry::kCommand);
      return true;
    default:
      if (!HasRows(*focused_) || input.character < ' ') return false;
      BeginEntry(Entry::kFind);
      return OnEntryKey(input);
  }
}

// Several controls with one key take the focus in turn, and none is pressed.
bool ScreenFrontEnd::OnAccessKey(char32_t character) {
  std::string wanted;
  AppendUtf8(wanted, LowerCase(character));
  std::vector<PlacedControl> matching = reachable_;
  std::erase_if(matching, [&wanted](const PlacedControl& placed) {
    return AccessKeyOf(*placed.control) != wanted;
  });
  if (matching.empty()) return false;
  if (matching.size() > 1) {
    focus_[top_].MoveByTab(matching, false);
    return true;
  }
  focus_[top_].MoveTo(matching.front());
  Press(*matching.front().control);
  return true;
}

// What a click does; lists and texts take the focus alone.
void ScreenFrontEnd::Press(Control& control) {
  if (auto* click_control = dynamic_cast<ClickControl*>(&control)) click_control->Click();
}

void ScreenFrontEnd::OnEnter() {
  const auto list = RowsOf(*focused_);
  if (list != nullptr && list->CanBeOpened()) {
    if (SelectedRow(*list) != 0) list->UserDoubleClick();
    return;
  }
  if (list == nullptr && dynamic_cast<TextBox*>(focused_) == nullptr) return Press(*focused_);
  CommandButton* button = FindButton(ControlsOf(reachable_), &CommandButton::Default);
  if (button != nullptr) button->Click();
}

void ScreenFrontEnd::OnEscape() {
  if (CommandButton* button = FindButton(ControlsOf(reachable_), &CommandButton::Cancel)) {
    button->Click();
  } else if (top_ == menu_) {
    Unload(*top_);
  } else if (top_ == desk_.main_window) {
    Leave(true);
  }
}

void ScreenFrontEnd::OnSpace() {
  if (!HasRows(*focused_)) return Press(*focused_);
  const auto list = RowsOf(*focused_);
  TickInList(*list, ShapeOfFocused(*list), range_);
}

ListShape ScreenFrontEnd::ShapeOfFocused(const Rows& list) {
  const auto placed =
      std::find_if(layout_.controls.begin(), layout_.controls.end(),
                   [this](const PlacedControl& each) { return each.control == focused_; });
  return ShapeOf(list, placed->area, desk_.scroll);
}

bool ScreenFrontEnd::OnListKey(const ScreenInput& input) {
  const auto list = RowsOf(*focused_);
  const ListShape shape = ShapeOfFocused(*list);
  if (MoveInList(*list, shape, range_, input.key)) return true;
  if (input.key == Key::kMenu) {
    OpenMenu();
    return true;
  }
  if (input.key == Key::kEscape && range_.IsOf(*list)) {
    range_.Clear();
    return true;
  }
  if (input.key != Key::kCharacter || input.alt) return false;
  switch (input.character) {
    case 'm':
      if (!list->HasMenu()) return false;
      OpenMenu();
      return true;
    case '/':
      BeginEntry(Entry::kFind);
      return true;
    case kControlA:
      MarkAll();
      return true;
    default:
      return false;
  }
}

void ScreenFrontEnd::MarkAll() {
  const auto list = RowsOf(*focused_);
  if (list->Count() == 0) return;
  range_.Begin(*list, 1);
  range_.Extend(list->Count());
  list->UserSelectRange(1, list->Count(), std::max(SelectedRow(*list), 1));
}

// The menu opens below its row.
void ScreenFrontEnd::OpenMenu() {
  const auto list = RowsOf(*focused_);
  const ListShape shape = ShapeOfFocused(*list);
  const int row = SelectedRow(*list);
  menu_row_ = row == 0 ? shape.area.row + 1 : shape.LineOf(row) + 1;
  menu_column_ = shape.texts;
  if (list->HasMenu()) list->UserContextMenu(row);
}

void ScreenFrontEnd::OnMouse(const ScreenInput& input) {
  if (IsTooSmall()) return;
  notice_.clear();
  EndEntry();
  const bool press = input.act == MouseAct::kPress || input.act == MouseAct::kDoublePress;
  menu_row_ = input.row + 1;
  menu_column_ = input.column;
  if ((press || input.act == MouseAct::kRightPress) && TrayArea().Holds(input.row, input.column)) {
    return ClickTray(*desk_.main_window, press ? TrayClick::kLeft : TrayClick::kRight);
  }
  if (top_ == nullptr) return;
  if (input.act == MouseAct::kWheelUp && ScrollTexts(-kWheelRows)) return;
  if (input.act == MouseAct::kWheelDown && ScrollTexts(kWheelRows)) return;
  // What lies in front is behind in the order.
  const auto hit = std::find_if(
      reachable_.rbegin(), reachable_.rend(),
      [&input](const PlacedControl& placed) { return placed.area.Holds(input.row, input.column); });
  if (hit == reachable_.rend()) {
    if (top_ == menu_ && press) OnEscape();
    return;
  }
  Control& control = *hit->control;
  if (press || input.act == MouseAct::kRightPress) focus_[top_].MoveTo(*hit);
  if (const auto list = RowsOf(control)) return OnListMouse(*list, hit->area, input);
  if (press) Press(control);
}

void ScreenFrontEnd::OnListMouse(Rows& list, const Area& area, const ScreenInput& input) {
  const ListShape shape = ShapeOf(list, area, desk_.scroll);
  if (input.act == MouseAct::kWheelUp || input.act == MouseAct::kWheelDown) {
    const int rows = input.act == MouseAct::kWheelUp ? -kWheelRows : kWheelRows;
    return desk_.scroll.ScrollByRows(list, rows);
  }
  const int row = shape.RowAt(input.row, list);
  if (row == 0) {
    const int heading = shape.HeadingAt(input.row, input.column);
    if (heading != 0 && input.act != MouseAct::kRightPress) {
      range_.Clear();  // its rows are numbers
      list.UserColumnClick(heading);
    }
    return;
  }
  if (input.act == MouseAct::kRightPress) {
    if (!range_.Holds(list, row)) range_.Clear();
    if (list.HasMenu()) return list.UserContextMenu(row);
    return list.UserSelect(row);
  }
  if (list.HasCheckBoxes() && shape.IsCheckMark(input.column)) {
    return list.UserCheck(row, !list.Checked(row));
  }
  range_.Clear();
  if (input.act == MouseAct::kDoublePress && SelectedRow(list) == row) {
    return list.UserDoubleClick();
  }
  list.UserSelect(row);
}

void ScreenFrontEnd::BeginEntry(Entry entry) {
  entry_ = entry;
  entry_text_.SetText("");
}

bool ScreenFrontEnd::OnEntryKey(const ScreenInput& input) {
  const bool find = entry_ == Entry::kFind;
  if (find && (focused_ == nullptr || !HasRows(*focused_))) {
    EndEntry();
    return false;
  }
  if (input.key == Key::kEscape) {
    EndEntry();
  } else if (input.key == Key::kEnter) {
    find ? EndEntry() : RunEntry();
  } else if (find && (input.key == Key::kDown || input.key == Key::kUp)) {
    Find(input.key == Key::kDown ? FindFrom::kNext : FindFrom::kPrevious);
  } else if (input.key == Key::kBackspace && entry_text_.Text().empty()) {
    EndEntry();
  } else if (EditText(entry_text_, input)) {
    if (find && !entry_text_.Text().empty()) Find(FindFrom::kHere);
  } else {
    EndEntry();
    return false;
  }
  return true;
}

void ScreenFrontEnd::Find(FindFrom from) {
  const auto list = RowsOf(*focused_);
  if (!FindInList(*list, entry_text_.Text().View(), from)) {
    notice_ = "not found";
  } else {
    range_.Clear();
  }
}

void ScreenFrontEnd::RunEntry() {
  const std::string line = entry_text_.Text().String();
  EndEntry();
  range_.Clear();
  try {
    RunLine(line, " | ");
  } catch (const CommandRefused& refusal) {
    notice_ = refusal.what();
  }
}

void ScreenFrontEnd::Leave(bool ask) {
  const Form& window = *desk_.main_window;
  const bool works = window.Progress && window.Progress() >= 0;
  if (works && !AskYesNo("Tidemark is at work. Leave it all the same?", "Leave")) return;
  if (!works && ask && !AskYesNo("Leave Tidemark?", "Leave")) return;
  CloseMain();
}

void ScreenFrontEnd::Help() {
  // No line is wider than the narrowest screen shows.
  ShowText("Keys",
           "Tab         the next control; Shift+Tab goes back\n"
           "Arrows      the control on that side; or the row\n"
           "Page Up, Page Down, Home, End: in a list\n"
           "Enter       presses, opens a row\n"
           "Space       ticks, presses\n"
           "a letter    presses what has it underlined; where\n"
           "            a text is typed, with Alt\n"
           "Shift+Up, Shift+Down, Ctrl+A: mark rows, which\n"
           "            Space then ticks together\n"
           "/           finds a row by its text, as does any\n"
           "            other letter; Up and Down go on\n"
           "m           the menu of a row (Shift+F10)\n"
           "F1          what Tidemark does\n"
           "F10         the menu of the tray icon\n"
           "Esc         cancels, closes\n"
           ":           a command; \":help\" lists them\n"
           "q, Ctrl+C   leaves\n"
           "Ctrl+Z      stops Tidemark until the shell's fg\n"
           "The mouse   presses, ticks, scrolls, sorts by a\n"
           "            click on a heading, opens by a double\n"
           "            click; its right button shows a menu");
}

}  // namespace tidemark
