// The top-level window of one form, with the peers of its controls.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "desktop/win32/form_keyboard.h"
#include "desktop/win32/form_peers.h"
#include "desktop/win32/form_scroller.h"
#include "desktop/win32/resources.h"
#include "desktop/win32/task_bar_button.h"
#include "platform/winapi.h"
#include "toolkit/controls.h"
#include "toolkit/front_end.h"

namespace tidemark {

// What the windows of forms ask of whoever has made them.
class FormHost {
 public:
  virtual ~FormHost() = default;
  // A person closes the form, or the session ends.
  virtual void OnClose(Form& form) = 0;
  virtual MousePointer Pointer() const = 0;
  // The shell has made a new task bar.
  virtual void OnTaskBarMade() = 0;
};

class FormWindow {
 public:
  // Makes the window, in the middle of the screen, hidden and bare. A form of dialog frame belongs
  // to the window `beside`, if that can be seen: it stands in its middle and stays in front of it.
  FormWindow(Form& form, FormHost& host, const std::string& program_folder, HWND beside);
  ~FormWindow();
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  HWND Window() const { return window_; }
  const Form& GetForm() const { return form_; }
  Resources& GetResources() { return resources_; }

  // Makes the peers of the controls; after the form's Load event.
  void MakePeers();
  // Brings the window and what can be seen in it in line with the form.
  void Refresh();
  // Takes a message for the keyboard; see FormKeyboard. Not from within a window's procedure.
  bool TakesKey(const MSG& message);
  // The window goes at once, and no control is touched from now on: they may go. Their peers stay
  // until this object's end, for their procedures may be running.
  void Close();
  // The window of one of its controls; null when that has none.
  HWND WindowOf(const Control& control) const;
  bool IsClosed() const { return window_ == nullptr; }

  bool closing = false;  // its Unload event is being raised

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  std::optional<LRESULT> OnFormMessage(UINT message, WPARAM wparam, LPARAM lparam);
  void OnMouseMove(WPARAM wparam, LPARAM lparam);
  void OnSize(WPARAM how);
  void OnDotsPerInch(WPARAM wparam, const RECT& suggested);
  void OnSystemChange(UINT message, WPARAM wparam, LPARAM lparam);
  void PaintBackground(HDC context);
  void Place(HWND owner);
  // Of the whole form, in pixels, and of the window with its frame.
  SIZE PageSize() const;
  SIZE OuterSize() const;
  void RefreshPlaces();
  void RefreshFrame();
  void RefreshState();
  void RefreshProgress();
  void Forget();

  Form& form_;
  FormHost& host_;
  Resources resources_;
  HWND window_ = nullptr;
  std::unique_ptr<FormPeers> peers_;
  std::unique_ptr<FormKeyboard> keyboard_;
  FormScroller scroller_{resources_};
  HWND focus_seen_ = nullptr;  // what had the focus when it was last brought into view
  std::optional<TaskBarButton> task_bar_button_;
  Text caption_;
  bool topmost_ = false;
  bool visible_ = false;
  WindowState state_ = WindowState::kNormal;
};

}  // namespace tidemark
