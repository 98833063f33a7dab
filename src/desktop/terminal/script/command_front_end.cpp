#include "desktop/terminal/script/command_front_end.h"

#include <utility>

#include "desktop/terminal/script/page.h"

namespace tidemark {
namespace {

std::string Printed(const Lines& lines) {
  std::string text;
  for (const Line& line : lines) text += line.Print(kPageWidth) + "\n";
  return text;
}

}  // namespace

void CommandFrontEnd::LookForInput() {
  if (console_.CloseRequested()) CloseMain();
}

ConsoleInput CommandFrontEnd::WaitForInput() {
  while (true) {
    TickTimer();
    PrintPage();
    ConsoleInput input = console_.Wait(TimeToNextTick());
    if (input.kind != ConsoleInput::Kind::kNothing) return input;
  }
}

void CommandFrontEnd::Handle(const ConsoleInput& input) {
  if (input.kind != ConsoleInput::Kind::kLine) CloseMain();
  try {
    RunLine(input.line, "\t");
  } catch (const CommandRefused& refusal) {
    Refused(refusal.what());
  }
}

void CommandFrontEnd::Refused(const std::string& reason) {
  refused_ = true;
  console_.WriteError("tidemark: " + reason + "\n");
}

void CommandFrontEnd::PrintPage() {
  std::string page = Printed(PrintDesk(desk_, kPageWidth));
  if (page == last_page_) return;
  console_.Write(page + "\n");
  last_page_ = std::move(page);
}

void CommandFrontEnd::Print(const Lines& lines) { console_.Write(Printed(lines)); }

}  // namespace tidemark
