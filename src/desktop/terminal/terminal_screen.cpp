// The drawing of the terminal front end. A terminal's screen is the page, a line for notices, the
// prompt and a last line that stays free, so that Enter does not scroll. While the program works,
// the page is redrawn around the prompt and what has been typed behind it.
#include <algorithm>

#include "controls/xp_progress_bar.h"
#include "desktop/terminal/page.h"
#include "desktop/terminal/terminal_front_end.h"

namespace tidemark {
namespace {

constexpr std::string_view kPrompt = "tidemark> ";
constexpr int kLinesBelowPage = 3;
constexpr std::string_view kClearScreen = "\x1b[H\x1b[2J";
constexpr std::string_view kClearRestOfLine = "\x1b[K";
constexpr std::string_view kSaveCursor =
    "\x1b"
    "7";
constexpr std::string_view kRestoreCursor =
    "\x1b"
    "8";

// The first bar in the window that has come off its start, shown or not; 0 when there is none.
int WorkDone(const Control& control) {
  if (const auto* bar = dynamic_cast<const XP_ProgressBar*>(&control)) return bar->Percent();
  for (const Control* inner : control.Controls()) {
    if (const int percent = WorkDone(*inner); percent > 0) return percent;
  }
  return 0;
}

std::string MoveTo(int row) { return "\x1b[" + std::to_string(row) + ";1H"; }

}  // namespace

void TerminalFrontEnd::Draw() {
  if (!interactive_) {
    PrintPage();
  } else if (!reading_) {
    DrawScreen();
  }
  last_draw_ = Clock::now();
}

void TerminalFrontEnd::PrintPage() {
  const ConsoleSize size = console_.Size();
  std::string page;
  for (const Line& line : DrawDesk(desk_, {.width = size.width, .height = 0})) {
    page += line.Paint(size.width, false) + "\n";
  }
  if (page == last_screen_) return;
  console_.Write(page + "\n");
  last_screen_ = std::move(page);
}

void TerminalFrontEnd::PrintBox() {
  std::string box;
  const int width = console_.Size().width;
  for (const Line& line : desk_.box) box += line.Paint(width, false) + "\n";
  console_.Write(box);
}

void TerminalFrontEnd::ForgetScreen() {
  last_screen_.clear();
  prompt_is_up_ = false;
}

void TerminalFrontEnd::DrawScreen() {
  const ConsoleSize size = console_.Size();
  const int page_height = std::max(1, size.height - kLinesBelowPage);
  Lines lines = DrawDesk(desk_, {.width = size.width, .height = page_height});
  lines.resize(static_cast<std::size_t>(page_height));
  lines.push_back(StatusLine());

  std::string screen;
  for (std::size_t row = 0; row < lines.size(); ++row) {
    screen += MoveTo(static_cast<int>(row) + 1);
    screen += lines[row].Paint(size.width, console_.HasColor());
    screen += kClearRestOfLine;
  }
  const bool same = screen == last_screen_;
  if (same && prompt_is_up_) return;
  std::string output;
  if (last_screen_.empty()) output += kClearScreen;
  if (prompt_is_up_) output += kSaveCursor;
  output += screen;
  if (prompt_is_up_) {
    output += kRestoreCursor;
  } else {
    output += MoveTo(page_height + 2) + "\x1b[J" + std::string(kPrompt);
  }
  console_.Write(output);
  prompt_is_up_ = true;
  last_screen_ = std::move(screen);
}

Line TerminalFrontEnd::StatusLine() const {
  if (!notice_.empty()) return Line(" " + notice_, Style::kBad);
  if (!desk_.box.empty()) return Line(" the next line is the answer", Style::kFaint);
  if (working_ || busy_pointer_) {
    const Form* window = desk_.main_window;
    const int percent = window == nullptr  ? 0
                        : window->Progress ? window->Progress()
                                           : WorkDone(*window);
    Line line(" working…", Style::kWarning);
    if (percent > 0) line.Add(" ").Add(std::to_string(percent)).Add(" %");
    return line;
  }
  return Line(" help lists the commands", Style::kFaint);
}

void TerminalFrontEnd::ShowOutput(std::string_view output) {
  if (!interactive_) {
    console_.Write(output);
    return;
  }
  console_.Write(std::string(kClearScreen) + std::string(output) + "\n(Enter: back to the page)\n" +
                 std::string(kPrompt));
  last_screen_.clear();
  prompt_is_up_ = true;
  reading_ = true;
}

}  // namespace tidemark
