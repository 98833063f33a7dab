// The front end for scripts. Commands come from standard input, one at a time while the program is
// idle, and the page is printed when a command has changed it. A question takes the next line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "desktop/terminal/desk_front_end.h"
#include "desktop/terminal/script/console.h"
#include "desktop/terminal/script/line.h"

namespace tidemark {

class CommandFrontEnd : public DeskFrontEnd {
 public:
  explicit CommandFrontEnd(Console& console) : console_(console) {}

  void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override;
  bool AskYesNo(std::string_view text, std::string_view title) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string BrowseForFolder(std::string_view title) override;
  void PopupMenu(Menu& menu) override;
  void Beep() override {}

 private:
  void AwaitInput() override { Handle(WaitForInput()); }
  void LookForInput() override;
  void ShowOutput(const std::string& output) override { console_.Write(output); }
  void RepeatPage() override { last_page_.clear(); }

  // The next input; the page is printed and timers tick until it comes.
  ConsoleInput WaitForInput();
  // The line that answers the box; nothing at the end of the input.
  std::optional<std::string> Ask(std::string_view title, Lines content, std::string_view hint);
  void Handle(const ConsoleInput& input);
  void Refused(const std::string& reason);

  void PrintPage();
  void Print(const Lines& lines);

  Console& console_;
  std::string last_page_;
};

}  // namespace tidemark
