// The main window at a scripted console, on a fresh PC.
#pragma once

#include <gmock/gmock.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "desktop/terminal/script/command_front_end.h"
#include "tests/support/test_pc.h"
#include "window/frmMain.h"
#include "window/panels.h"

namespace tidemark {

class ScriptedConsole : public Console {
 public:
  std::deque<std::string> lines;  // then the input ends
  std::string written;
  std::string errors;
  std::vector<int> timeouts;

  ConsoleInput Wait(int timeout_ms) override {
    timeouts.push_back(timeout_ms);
    if (lines.empty()) return {.kind = ConsoleInput::Kind::kEnd, .line = {}};
    ConsoleInput input{.kind = ConsoleInput::Kind::kLine, .line = lines.front()};
    lines.pop_front();
    return input;
  }
  bool CloseRequested() const override { return false; }
  void Write(std::string_view text) override { written += text; }
  void WriteError(std::string_view text) override { errors += text; }
};

// The main window on its results page, with three problems.
class TerminalTest : public testing::Test {
 protected:
  TerminalTest() {
    HideAllFrames(window);
    window.picClear.SetVisible(true);
    for (const char* key : {"K1", "K2", "K3"}) {
      window.lvProblems.Add(key, "HKEY_CLASSES_ROOT\\" + std::string(key))->SetChecked(true);
    }
    window.lvProblems.ItemChecked.Bind([this](ListItem& item) {
      ticked.push_back(item.Key().String() + (item.Checked() ? "+" : "-"));
    });
    window.form.Unload.Bind([this] {
      ++closed;
      front_end.End();
    });
  }

  int Run(std::deque<std::string> lines) {
    console.lines = std::move(lines);
    return front_end.Run(window.form, [this] { front_end.Show(window.form); });
  }

  // As a procedure that asks and waits until it is answered.
  void AskWithBox(const char* question) {
    window.mess_box = std::make_unique<frmMessBox>("C:\\Program");
    window.mess_box->lblMessage.SetCaption(question);
    window.mess_box->form.SetQuestion(true);
    window.mess_box->cmdOK.SetVisible(false);
    window.mess_box->cmdNo.Clicked.Bind([this] { front_end.Unload(window.mess_box->form); });
    window.mess_box->form.Unload.Bind([this] { window.mess_box.reset(); });
    front_end.Show(window.mess_box->form);
    while (window.mess_box) front_end.WaitForEvents();
    window.lblFound.SetCaption("answered");
  }

  TestPc pc;
  ScriptedConsole console;
  CommandFrontEnd front_end{console};
  frmMain window{front_end, {}};
  std::vector<std::string> ticked;
  int closed = 0;
};

}  // namespace tidemark
