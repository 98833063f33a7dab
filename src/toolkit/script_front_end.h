// A front end with no screen, for tests and benchmarks: it does what a script says at the yields,
// and remembers what was shown.
#pragma once

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
  // Notices that were shown, "title: text".
  const std::vector<std::string>& messages() const { return messages_; }
  const std::vector<MousePointer>& pointers() const { return pointers_; }

  void DoEvents() override;
  void Show(Form& form) override;
  void Unload(Form& form) override;
  void ShowMessage(std::string_view text, std::string_view title) override;
  void SetMousePointer(MousePointer pointer) override;
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
  std::vector<MousePointer> pointers_;
  std::vector<const Form*> loaded_;
};

}  // namespace tidemark
