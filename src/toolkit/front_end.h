// What the procedures ask of a front end: to give way to events, to show windows, notices,
// questions and menus, to end the program. A front end watches the controls and shows them; it
// decides nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/winapi.h"
#include "toolkit/controls.h"
#include "toolkit/menu.h"
#include "toolkit/tray_icon.h"

namespace tidemark {

enum class MousePointer { kDefault = 0, kHourglass = 11 };

// The picture of a notice or a question.
enum class MessageIcon { kNone, kInformation, kExclamation, kCritical };

class FrontEnd {
 public:
  virtual ~FrontEnd() = default;

  // Yields to the message loop: whatever a person did meanwhile is handled now, its handlers run on
  // top of the caller, and timers that are due tick. A front end repaints at the pace of the eye,
  // not at every yield.
  virtual void DoEvents() = 0;
  // The same for a loop that has nothing to do itself: does not return before something has
  // happened, and costs no processor time until then.
  virtual void WaitForEvents() { DoEvents(); }

  // Shows a form without making it modal; the first time its Load event is raised before.
  virtual void Show(Form& form) = 0;
  // Closes a form: its Unload event is raised, then it is gone.
  virtual void Unload(Form& form) = 0;
  // Brings a form's window to the front of all others.
  virtual void SetForeground(Form& form) = 0;
  // The platform's handle of a form's window; null where a front end has no such windows.
  virtual HWND WindowHandle(const Form& form) = 0;
  // The platform's handle of the icon that the image's picture makes, for as long as the front end
  // lives; 0 where there are no such handles.
  virtual std::uint32_t IconHandle(const ImageBox& /*image*/) { return 0; }
  // How many twips a pixel is wide on the display that the form is on: 15 at 96 dots per inch.
  virtual double TwipsPerPixelX(const Form& /*form*/) { return 15; }

  // These are modal: they return when the person has answered.
  virtual void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) = 0;
  virtual bool AskYesNo(std::string_view text, std::string_view title) = 0;
  // What was typed; empty when it was cancelled.
  virtual std::string InputBox(std::string_view prompt, std::string_view title,
                               std::string_view default_text) = 0;
  // The platform's folder dialog: a path, or empty when it was cancelled or the choice has no path.
  virtual std::string BrowseForFolder(std::string_view title) = 0;
  // The path of a file to be written, whose name is proposed; empty when it was cancelled. A file
  // that is there already may be replaced.
  virtual std::string AskSaveFile(std::string_view title, std::string_view name) = 0;
  // Hands a text to other programs: the platform's clipboard, or what a front end has instead.
  virtual void CopyText(std::string_view text) = 0;
  // Pops a menu up at the mouse, or at the selected row of a list whose menu the keyboard asked
  // for; the item that was chosen has raised its event when this returns.
  virtual void PopupMenu(Menu& menu) = 0;

  // The notification area: adds or deletes the icon. Its mouse messages come back as MouseMove
  // events of the form whose handle it bears. False when that failed.
  virtual bool NotifyIcon(TrayMessage message, const TrayIcon& icon) = 0;

  virtual void SetMousePointer(MousePointer pointer) = 0;
  // The system's bell.
  virtual void Beep() = 0;

  // Ends the process at once, whatever loop is running: it throws ProcessEnded, which nothing above
  // the front end's owner catches.
  [[noreturn]] virtual void End() = 0;
};

// Thrown by FrontEnd::End.
struct ProcessEnded {};

}  // namespace tidemark
