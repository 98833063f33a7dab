// The front end of Windows: a window for each form that is shown, and the message loop.
//
// A window's procedure may run the handler of an event, which may yield, unload forms or end the
// process. What such a handler throws is kept at the procedure's edge and thrown again by the pump;
// a form that has been unloaded loses its windows at once, its peers when no procedure runs any
// more.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/win32/form_window.h"
#include "desktop/win32/notification_area.h"
#include "platform/winapi.h"
#include "toolkit/due_timers.h"
#include "toolkit/front_end.h"

namespace tidemark {

class Win32FrontEnd : public FrontEnd, private FormHost {
 public:
  explicit Win32FrontEnd(std::string program_folder);
  ~Win32FrontEnd() override;

  // Calls the program's entry, then handles messages until the process ends. The exit code.
  int Run(const std::function<void()>& program_entry);

  void DoEvents() override;
  void WaitForEvents() override;
  void Show(Form& form) override;
  void Unload(Form& form) override;
  void SetForeground(Form& form) override;
  HWND WindowHandle(const Form& form) override;
  std::uint32_t IconHandle(const ImageBox& image) override;
  double TwipsPerPixelX(const Form& form) override;
  // The window of a control, or of a form, that is on the screen; null when it has none.
  HWND WindowOf(const Control& control) const;
  void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override;
  bool AskYesNo(std::string_view text, std::string_view title) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string BrowseForFolder(std::string_view title) override;
  std::string AskSaveFile(std::string_view title, std::string_view name) override;
  void CopyText(std::string_view text) override;
  void PopupMenu(Menu& menu) override;
  bool NotifyIcon(TrayMessage message, const TrayIcon& icon) override;
  void SetMousePointer(MousePointer pointer) override;
  void Beep() override;
  [[noreturn]] void End() override;

 private:
  void OnClose(Form& form) override;
  MousePointer Pointer() const override { return pointer_; }
  void OnTaskBarMade() override;

  FormWindow* Find(const Form& form) const;
  FormWindow* FindWindowOf(HWND window) const;
  // Where modal boxes belong: the active window, or the first that can be seen; null for none.
  HWND Owner() const;

  // One round: messages, the timer that is due, and a refresh when the last one is a while ago.
  void Pump();
  void Handle(const MSG& message);
  // True when one has ticked.
  bool RunTimer();
  // The same within the loop of a box or menu of the platform.
  void RunTimerModally();
  void Refresh();
  void WaitForInput();
  // Before and behind a modal box, whose own loop shows nothing new.
  template <class Box>
  auto Modally(Box box);

  std::string program_folder_;
  std::vector<std::unique_ptr<FormWindow>> windows_;  // in the order they were shown first
  std::vector<std::unique_ptr<FormWindow>> closed_;
  DueTimers timers_;
  NotificationArea notification_area_;
  std::vector<UniqueIcon> icons_;  // whose handles were given away
  MousePointer pointer_ = MousePointer::kDefault;

  ULONGLONG last_pump_ms_ = 0;
  ULONGLONG last_refresh_ms_ = 0;
};

}  // namespace tidemark
