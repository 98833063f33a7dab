#include "desktop/terminal/screen/curses_screen.h"

#define NCURSES_NOMACROS 1
#define NCURSES_WIDECHAR 1
#include <curses.h>
#include <langinfo.h>
#include <poll.h>
#include <term.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "desktop/terminal/display_text.h"
#include "platform/unicode.h"

namespace tidemark {
namespace {

constexpr int kEscapeDelay_ms = 25;  // from Esc to the next character, when they are one key
constexpr int kMenuKey = KEY_MAX + 1;

// -1 is the terminal's own colour.
struct Look {
  attr_t attributes;           // without colours
  attr_t colored_attributes;   // with colours
  std::array<short, 2> basic;  // foreground and background among 8
  std::array<short, 2> rich;   // among 256
};

// By Style.
constexpr std::array<Look, 15> kLooks = {{
    {A_NORMAL, A_NORMAL, {-1, -1}, {-1, -1}},
    {A_BOLD, A_BOLD, {-1, -1}, {-1, -1}},
    {A_DIM, A_DIM, {-1, -1}, {245, -1}},
    {A_NORMAL, A_NORMAL, {COLOR_BLUE, -1}, {67, -1}},
    {A_BOLD, A_BOLD, {COLOR_CYAN, -1}, {80, -1}},
    {A_REVERSE, A_BOLD, {COLOR_BLACK, COLOR_CYAN}, {16, 80}},
    {A_BOLD, A_BOLD, {COLOR_WHITE, COLOR_BLUE}, {231, 24}},
    {A_UNDERLINE, A_NORMAL, {COLOR_WHITE, COLOR_BLUE}, {231, 238}},
    {A_REVERSE, A_NORMAL, {COLOR_BLACK, COLOR_WHITE}, {252, 236}},
    {A_REVERSE, A_NORMAL, {COLOR_BLACK, COLOR_GREEN}, {231, 29}},
    {A_NORMAL, A_NORMAL, {COLOR_GREEN, -1}, {77, -1}},
    {A_NORMAL, A_NORMAL, {COLOR_CYAN, -1}, {80, -1}},
    {A_NORMAL, A_NORMAL, {COLOR_YELLOW, -1}, {221, -1}},
    {A_BOLD, A_NORMAL, {COLOR_RED, -1}, {203, -1}},
    {A_BOLD, A_BOLD, {COLOR_RED, -1}, {196, -1}},
}};

constexpr int kFewColors = 8;
constexpr int kManyColors = 256;

const Look& LookOf(Style style) { return kLooks.at(static_cast<std::size_t>(style)); }
short PairOf(Style style) { return static_cast<short>(static_cast<int>(style) + 1); }

bool ColorIsWanted() {
  const char* refusal = std::getenv("NO_COLOR");
  return refusal == nullptr || *refusal == '\0';
}

// RFC 4648.
std::string Base64(std::string_view bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  constexpr std::size_t kGroup = 3;
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); at += kGroup) {
    std::uint32_t group = 0;
    for (std::size_t i = at; i < at + kGroup; ++i) {
      group = group << 8U | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
    }
    const std::size_t given = std::min(bytes.size() - at, kGroup);
    for (std::size_t digit = 0; digit < 4; ++digit) {
      text += digit > given ? '=' : kDigits[group >> (18U - 6U * digit) & 63U];
    }
  }
  return text;
}

// Set by SetUpColors.
bool uses_color = false;

void SetUpColors() {
  if (!ColorIsWanted() || !has_colors() || start_color() == ERR || COLORS < kFewColors) return;
  use_default_colors();
  for (std::size_t style = 0; style < kLooks.size(); ++style) {
    const auto& pair = COLORS >= kManyColors ? kLooks.at(style).rich : kLooks.at(style).basic;
    init_pair(PairOf(static_cast<Style>(style)), pair[0], pair[1]);
  }
  uses_color = true;
}

void SetLook(Style style, attr_t more = 0) {
  const Look& look = LookOf(style);
  const attr_t attributes = uses_color ? look.colored_attributes : look.attributes;
  attr_set(attributes | more, uses_color ? PairOf(style) : static_cast<short>(0), nullptr);
}

// A terminal of another character set gets a mark for each column that it lacks.
bool IsUtf8() {
  static const bool kIs = std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0;
  return kIs;
}

std::string InAscii(std::string_view text) {
  std::string ascii;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = position;
    const char32_t character = NextCharacter(text, position);
    if (character < 0x80) {
      ascii += static_cast<char>(character);
    } else {
      const std::string_view bytes = text.substr(start, position - start);
      const auto width = static_cast<std::size_t>(DisplayWidth(bytes));
      ascii.append(width, bytes == "…" ? '~' : '?');
    }
  }
  return ascii;
}

// Signals are taken while the program waits for input, and at no other place: so a handler may do
// what ncurses' own does.
constexpr std::array kTaken = {SIGINT, SIGTERM, SIGHUP, SIGTSTP, SIGWINCH};
constexpr std::array kFatal = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGQUIT};

volatile std::sig_atomic_t close_requested = 0;
volatile std::sig_atomic_t continued = 0;
std::array<struct sigaction, kFatal.size()> former_actions;
// A handler of a stack overflow needs a stack of its own.
std::array<char, 64 * 1024> fatal_stack;

void OnClose(int /*signal*/) { close_requested = 1; }
void OnContinue(int /*signal*/) { continued = 1; }

// The terminal is given back first, so that whoever looks into the crash can.
void OnFatal(int signal) {
  endwin();
  for (std::size_t i = 0; i < kFatal.size(); ++i) {
    if (kFatal.at(i) == signal) sigaction(signal, &former_actions.at(i), nullptr);
  }
  raise(signal);
}

void SetHandler(int signal, void (*handler)(int), int flags, struct sigaction* former = nullptr) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = flags;
  sigaction(signal, &action, former);
}

void TakeSignals() {
  const stack_t stack = {.ss_sp = fatal_stack.data(), .ss_flags = 0, .ss_size = fatal_stack.size()};
  sigaltstack(&stack, nullptr);
  for (std::size_t i = 0; i < kFatal.size(); ++i) {
    SetHandler(kFatal.at(i), OnFatal, SA_ONSTACK | SA_NODEFER, &former_actions.at(i));
  }
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) SetHandler(signal, OnClose, 0);
  SetHandler(SIGCONT, OnContinue, 0);
  SetHandler(SIGPIPE, SIG_IGN, 0);
  sigset_t taken;
  sigemptyset(&taken);
  for (const int signal : kTaken) sigaddset(&taken, signal);
  sigprocmask(SIG_BLOCK, &taken, nullptr);
}

int input_file = STDIN_FILENO;

// Waits for a byte or for one of the signals.
void Poll(int timeout_ms) {
  pollfd input = {.fd = input_file, .events = POLLIN, .revents = 0};
  const timespec time = {.tv_sec = timeout_ms / 1000, .tv_nsec = timeout_ms % 1000 * 1'000'000L};
  sigset_t none;
  sigemptyset(&none);
  ppoll(&input, 1, timeout_ms < 0 ? nullptr : &time, &none);
  // A terminal that has gone away stays readable for ever.
  if ((input.revents & (POLLHUP | POLLERR)) != 0) close_requested = 1;
}

struct KeyName {
  int code;
  Key key;
};
constexpr std::array kKeys = {
    KeyName{KEY_ENTER, Key::kEnter},
    KeyName{KEY_BTAB, Key::kBackTab},
    KeyName{KEY_UP, Key::kUp},
    KeyName{KEY_DOWN, Key::kDown},
    KeyName{KEY_LEFT, Key::kLeft},
    KeyName{KEY_RIGHT, Key::kRight},
    KeyName{KEY_SR, Key::kShiftUp},
    KeyName{KEY_SF, Key::kShiftDown},
    KeyName{KEY_PPAGE, Key::kPageUp},
    KeyName{KEY_NPAGE, Key::kPageDown},
    KeyName{KEY_HOME, Key::kHome},
    KeyName{KEY_END, Key::kEnd},
    KeyName{KEY_BACKSPACE, Key::kBackspace},
    KeyName{KEY_DC, Key::kDelete},
    KeyName{KEY_F(1), Key::kHelp},
    KeyName{KEY_F(10), Key::kTray},
    KeyName{KEY_F(22), Key::kMenu},
    KeyName{kMenuKey, Key::kMenu},
};

ScreenInput KeyInput(Key key, char32_t character = 0) {
  return {.kind = ScreenInput::Kind::kKey, .key = key, .character = character};
}

ScreenInput CharacterInput(char32_t character) {
  switch (character) {
    case '\r':
    case '\n':
      return KeyInput(Key::kEnter);
    case '\t':
      return KeyInput(Key::kTab);
    case 8:
    case 127:
      return KeyInput(Key::kBackspace);
    default:
      return KeyInput(Key::kCharacter, character);
  }
}

// What is left of a key that ncurses does not know must not be taken for letters.
ScreenInput SkipUnknownKey() {
  wint_t character = 0;
  while (get_wch(&character) == OK && (character < 0x40 || character > 0x7E)) {
  }
  return {};
}

// Esc alone, or Alt with the character that follows at once.
ScreenInput EscapeInput() {
  wint_t character = 0;
  if (get_wch(&character) != OK) return KeyInput(Key::kEscape);
  if (character == '[' || character == 'O') return SkipUnknownKey();
  ScreenInput input = CharacterInput(character);
  input.alt = true;
  return input;
}

// A second press at the place of the last one, soon after it, is a double one.
MouseAct PressAct(int row, int column) {
  using Clock = std::chrono::steady_clock;
  constexpr std::chrono::milliseconds kDoubleTime{400};
  static Clock::time_point last;
  static int last_row = -1;
  static int last_column = -1;
  const Clock::time_point now = Clock::now();
  const bool twice = now - last < kDoubleTime && row == last_row && column == last_column;
  last = twice ? Clock::time_point() : now;
  last_row = row;
  last_column = column;
  return twice ? MouseAct::kDoublePress : MouseAct::kPress;
}

ScreenInput MouseInput() {
  MEVENT event = {};
  if (getmouse(&event) != OK) return {};
  ScreenInput input{.kind = ScreenInput::Kind::kMouse, .row = event.y, .column = event.x};
  if ((event.bstate & BUTTON1_PRESSED) != 0) {
    input.act = PressAct(event.y, event.x);
  } else if ((event.bstate & BUTTON3_PRESSED) != 0) {
    input.act = MouseAct::kRightPress;
  } else if ((event.bstate & BUTTON4_PRESSED) != 0) {
    input.act = MouseAct::kWheelUp;
  } else if ((event.bstate & BUTTON5_PRESSED) != 0) {
    input.act = MouseAct::kWheelDown;
  } else {
    return {};
  }
  return input;
}

}  // namespace

bool CursesScreen::IsAvailable() {
  int error = 0;
  return isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1 &&
         setupterm(nullptr, STDOUT_FILENO, &error) == OK && tigetstr("cup") != nullptr;
}

CursesScreen::CursesScreen(std::FILE* input, std::FILE* output) {
  std::setlocale(LC_CTYPE, "");
  set_escdelay(kEscapeDelay_ms);
  input_file = fileno(input);
  set_term(newterm(nullptr, output, input));
  cbreak();
  noecho();
  nonl();
  keypad(stdscr, TRUE);
  nodelay(stdscr, TRUE);
  SetUpColors();
  // Some descriptions of terminals lack these.
  define_key("\033[1;2A", KEY_SR);
  define_key("\033[1;2B", KEY_SF);
  define_key("\033[21;2~", KEY_F(22));
  define_key("\033[29~", kMenuKey);
  mouseinterval(0);
  mousemask(BUTTON1_PRESSED | BUTTON3_PRESSED | BUTTON4_PRESSED | BUTTON5_PRESSED, nullptr);
  TakeSignals();
}

CursesScreen::~CursesScreen() {
  // Where there is no second screen the shell goes on in the last line.
  Fill({Height() - 1, 0, 1, Width()});
  refresh();
  endwin();
}

int CursesScreen::Width() const { return getmaxx(stdscr); }
int CursesScreen::Height() const { return getmaxy(stdscr); }

void CursesScreen::Clear() { erase(); }

void CursesScreen::Put(int row, int column, std::string_view text, Style style,
                       std::optional<std::size_t> key) {
  if (row < 0 || row >= Height() || column < 0) return;
  const std::string_view seen = Cut(text, Width() - column);
  const auto draw = [&](std::string_view piece, attr_t more) {
    SetLook(style, more);
    const std::string shown = IsUtf8() ? std::string(piece) : InAscii(piece);
    mvaddnstr(row, column, shown.data(), static_cast<int>(shown.size()));
    column += DisplayWidth(piece);
  };
  if (!key || *key >= seen.size()) return draw(seen, 0);
  std::size_t end = *key;
  NextCharacter(seen, end);
  draw(seen.substr(0, *key), 0);
  draw(seen.substr(*key, end - *key), A_UNDERLINE);
  draw(seen.substr(end), 0);
}

void CursesScreen::Fill(const Area& area, Style style) {
  const std::string blanks(static_cast<std::size_t>(std::max(area.width, 0)), ' ');
  for (int row = area.row; row < area.row + area.height; ++row)
    Put(row, area.column, blanks, style);
}

void CursesScreen::Rule(int row, int column, int width) {
  SetLook(Style::kFrame);
  mvhline_set(row, column, WACS_HLINE, width);
}

void CursesScreen::Frame(const Area& area) {
  Fill(area);
  SetLook(Style::kFrame);
  const int bottom = area.row + area.height - 1;
  const int right = area.column + area.width - 1;
  mvhline_set(area.row, area.column, WACS_HLINE, area.width);
  mvhline_set(bottom, area.column, WACS_HLINE, area.width);
  mvvline_set(area.row, area.column, WACS_VLINE, area.height);
  mvvline_set(area.row, right, WACS_VLINE, area.height);
  mvadd_wch(area.row, area.column, WACS_ULCORNER);
  mvadd_wch(area.row, right, WACS_URCORNER);
  mvadd_wch(bottom, area.column, WACS_LLCORNER);
  mvadd_wch(bottom, right, WACS_LRCORNER);
}

void CursesScreen::PutCursor(int row, int column) {
  cursor_ = true;
  move(row, column);
}

void CursesScreen::Show() {
  curs_set(cursor_ ? 1 : 0);
  cursor_ = false;
  // While it draws, ncurses ignores Ctrl+Z, and by that drops one that waits for its handler.
  Poll(0);
  refresh();
}

void CursesScreen::Beep() { beep(); }

void CursesScreen::CopyText(std::string_view text) {
  putp(("\x1B]52;c;" + Base64(text) + "\a").c_str());
  doupdate();
}

std::optional<ScreenInput> CursesScreen::Read() {
  wint_t character = 0;
  switch (get_wch(&character)) {
    case ERR:
      return {};
    case KEY_CODE_YES:
      break;
    default:
      return character == 27 ? EscapeInput() : CharacterInput(character);
  }
  if (character == KEY_RESIZE) return ScreenInput{.kind = ScreenInput::Kind::kResized};
  if (character == KEY_MOUSE) return MouseInput();
  const auto* known = std::find_if(kKeys.begin(), kKeys.end(), [character](const KeyName& name) {
    return name.code == static_cast<int>(character);
  });
  return known == kKeys.end() ? ScreenInput{} : KeyInput(known->key);
}

ScreenInput CursesScreen::Wait(int timeout_ms) {
  for (bool waited = false;; waited = true) {
    if (close_requested != 0) {
      close_requested = 0;
      return {.kind = ScreenInput::Kind::kClose};
    }
    if (continued != 0) {
      continued = 0;
      clearok(stdscr, TRUE);
      return {.kind = ScreenInput::Kind::kResized};
    }
    if (auto input = Read()) return *input;
    if (waited) return {};
    Poll(timeout_ms);
  }
}

}  // namespace tidemark
