// A front end with no screen, for tests and benchmarks: it does what a script says at the yields,
// and remembers what was shown.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "toolkit/front_end.h"

namespace tidemark {

class ScriptFrontEnd : public FrontEnd {
 public:
  // At the n-th yield from the start (1 is the first), do this.
  void AtYield(long yield, std::function<void()> action);
  // At the first yield at which the condition holds, do this, once.
  void When(std::function<bool()> condition, std::function<void()> action);

  long yields() const { return yields_; }
  // Notices and questions that were shown, "title: text".
  const std::vector<std::string>& messages() const { return messages_; }
  const std::vector<MessageIcon>& icons() const { return icons_; }

  // The answers to the questions that will come, first one first. A question for which there is no
  // answer left is cancelled.
  void AnswerYesNo(bool yes) { yes_no_.push_back(yes); }
  void AnswerInput(std::string text) { inputs_.push_back(std::move(text)); }
  void AnswerFolder(std::string path) { folders_.push_back(std::move(path)); }
  // The item that is chosen in the next popup menu; none: the menu is closed.
  void ChooseFromMenu(MenuItem& item) { chosen_items_.push_back(&item); }

  // The notification area: the icons in it.
  const std::vector<TrayIcon>& tray() const { return tray_; }
  // The menus that were popped up, the forms that were brought to the front.
  const std::vector<const Menu*>& menus() const { return menus_; }
  const std::vector<const Form*>& foreground() const { return foreground_; }
  int beeps() const { return beeps_; }
  const std::string& copied() const { return copied_; }
  const std::vector<MousePointer>& pointers() const { return pointers_; }

  void DoEvents() override;
  void Show(Form& form) override;
  void Unload(Form& form) override;
  void SetForeground(Form& form) override;
  HWND WindowHandle(const Form& form) override;
  std::uint32_t IconHandle(const ImageBox& image) override;
  void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override;
  bool AskYesNo(std::string_view text, std::string_view title) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string BrowseForFolder(std::string_view title) override;
  // Takes the answer of an input box.
  std::string AskSaveFile(std::string_view title, std::string_view name) override;
  void CopyText(std::string_view text) override { copied_ = text; }
  void PopupMenu(Menu& menu) override;
  bool NotifyIcon(TrayMessage message, const TrayIcon& icon) override;
  void SetMousePointer(MousePointer pointer) override;
  void Beep() override;
  [[noreturn]] void End() override;

 private:
  struct Step {
    std::function<bool()> condition;
    std::function<void()> action;
  };
  long yields_ = 0;
  std::multimap<long, std::function<void()>> at_yield_;
  std::vector<Step> when_;
  std::vector<std::string> messages_;
  std::vector<MessageIcon> icons_;
  std::deque<bool> yes_no_;
  std::deque<std::string> inputs_;
  std::deque<std::string> folders_;
  std::deque<MenuItem*> chosen_items_;
  std::vector<TrayIcon> tray_;
  std::vector<const Menu*> menus_;
  std::vector<const Form*> foreground_;
  int beeps_ = 0;
  std::string copied_;
  std::vector<MousePointer> pointers_;
  std::vector<const Form*> loaded_;
};

}  // namespace tidemark
