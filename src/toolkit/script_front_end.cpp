#include "toolkit/script_front_end.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace tidemark {
namespace {

// The first of a queue of answers; the neutral value when none is left.
template <class Answer>
Answer Next(std::deque<Answer>& answers) {
  if (answers.empty()) return {};
  Answer answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

}  // namespace

void ScriptFrontEnd::AtYield(long yield, std::function<void()> action) {
  at_yield_.emplace(yield, std::move(action));
}

void ScriptFrontEnd::When(std::function<bool()> condition, std::function<void()> action) {
  when_.push_back({std::move(condition), std::move(action)});
}

void ScriptFrontEnd::DoEvents() {
  ++yields_;
  while (!at_yield_.empty() && at_yield_.begin()->first <= yields_) {
    const auto action = std::move(at_yield_.begin()->second);
    at_yield_.erase(at_yield_.begin());
    action();
  }
  for (std::size_t step = 0; step < when_.size(); ++step) {
    if (!when_[step].condition()) continue;
    const auto action = std::move(when_[step].action);
    when_.erase(when_.begin() + static_cast<std::ptrdiff_t>(step));
    action();
    return;
  }
}

void ScriptFrontEnd::Show(Form& form) {
  if (std::find(loaded_.begin(), loaded_.end(), &form) == loaded_.end()) {
    loaded_.push_back(&form);
    form.Load();
  }
  form.SetVisible(true);
}

void ScriptFrontEnd::Unload(Form& form) {
  form.SetVisible(false);
  if (std::erase(loaded_, &form) > 0) form.Unload();
}

void ScriptFrontEnd::SetForeground(Form& form) { foreground_.push_back(&form); }

// A number that only tells forms apart.
HWND ScriptFrontEnd::WindowHandle(const Form& form) {
  const auto loaded = std::find(loaded_.begin(), loaded_.end(), &form);
  const auto number = static_cast<std::uintptr_t>(loaded - loaded_.begin()) + 1;
  return reinterpret_cast<HWND>(number);  // NOLINT(performance-no-int-to-ptr)
}

// A number that only tells whether there is a picture.
std::uint32_t ScriptFrontEnd::IconHandle(const ImageBox& image) {
  return image.PictureFile().empty() ? 0 : 1;
}

void ScriptFrontEnd::ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) {
  messages_.push_back(std::string(title) + ": " + std::string(text));
  icons_.push_back(icon);
}

bool ScriptFrontEnd::AskYesNo(std::string_view text, std::string_view title) {
  messages_.push_back(std::string(title) + ": " + std::string(text));
  return Next(yes_no_);
}

std::string ScriptFrontEnd::InputBox(std::string_view prompt, std::string_view title,
                                     std::string_view default_text) {
  messages_.push_back(std::string(title) + ": " + std::string(prompt) + " [" +
                      std::string(default_text) + "]");
  return Next(inputs_);
}

std::string ScriptFrontEnd::BrowseForFolder(std::string_view title) {
  messages_.emplace_back(title);
  return Next(folders_);
}

std::string ScriptFrontEnd::AskSaveFile(std::string_view title, std::string_view /*name*/) {
  messages_.emplace_back(title);
  return Next(inputs_);
}

void ScriptFrontEnd::PopupMenu(Menu& menu) {
  menus_.push_back(&menu);
  if (MenuItem* item = Next(chosen_items_)) item->Click();
}

bool ScriptFrontEnd::NotifyIcon(TrayMessage message, const TrayIcon& icon) {
  const auto same = [&icon](const TrayIcon& other) {
    return other.hWnd == icon.hWnd && other.uID == icon.uID;
  };
  if (message == TrayMessage::kDelete) return std::erase_if(tray_, same) > 0;
  tray_.push_back(icon);
  return true;
}

void ScriptFrontEnd::Beep() { ++beeps_; }

void ScriptFrontEnd::SetMousePointer(MousePointer pointer) { pointers_.push_back(pointer); }

void ScriptFrontEnd::End() { throw ProcessEnded{}; }

}  // namespace tidemark
