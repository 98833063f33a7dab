// What the procedures ask of a front end: to give way to events, to show windows and notices, to
// end the program. A front end watches the controls and shows them; it decides nothing.
#pragma once

#include <string>
#include <string_view>

#include "toolkit/controls.h"

namespace tidemark {

enum class MousePointer { kDefault = 0, kHourglass = 11 };

class FrontEnd {
 public:
  virtual ~FrontEnd() = default;

  // Yields to the message loop: whatever a person did meanwhile is handled now, its handlers run on
  // top of the caller. A front end repaints at the pace of the eye, not at every yield.
  virtual void DoEvents() = 0;

  // Shows a form without making it modal; the first time its Load event is raised before.
  virtual void Show(Form& form) = 0;
  // Closes a form: its Unload event is raised, then it is gone.
  virtual void Unload(Form& form) = 0;

  // A notice with an information icon; returns when the person has taken note of it.
  virtual void ShowMessage(std::string_view text, std::string_view title) = 0;
  virtual void SetMousePointer(MousePointer pointer) = 0;

  // Ends the process at once, whatever loop is running. Where a process can't just go (natively the
  // PC has to be shut down, in tests there is more to do) it throws ProcessEnded, which nothing
  // above the front end's owner catches.
  [[noreturn]] virtual void End() = 0;
};

// Thrown by FrontEnd::End where the process has something left to do.
struct ProcessEnded {};

}  // namespace tidemark
