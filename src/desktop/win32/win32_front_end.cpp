#include "desktop/win32/win32_front_end.h"

#include <algorithm>
#include <utility>

#include "desktop/win32/clipboard.h"
#include "desktop/win32/folder_dialog.h"
#include "desktop/win32/guarded.h"
#include "desktop/win32/input_box.h"
#include "desktop/win32/message_boxes.h"
#include "desktop/win32/modal_timer.h"
#include "desktop/win32/popup_menu.h"
#include "desktop/win32/save_dialog.h"
#include "toolkit/menu.h"
// It wants the platform's headers before it.
#include <commctrl.h>

namespace tidemark {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr int kUsualDotsPerInch = 96;

void LoadCommonControls() {
  const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX),
                                     ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&classes);
}

}  // namespace

Win32FrontEnd::Win32FrontEnd(std::string program_folder)
    : program_folder_(std::move(program_folder)) {
  LoadCommonControls();
}

Win32FrontEnd::~Win32FrontEnd() = default;

int Win32FrontEnd::Run(const std::function<void()>& program_entry) {
  try {
    program_entry();
    while (true) WaitForEvents();
  } catch (const ProcessEnded&) {
    // The handlers have done what there was to do.
  }
  // A window goes before the one that owns it.
  while (!windows_.empty()) windows_.pop_back();
  closed_.clear();
  timers_ = {};
  return 0;
}

FormWindow* Win32FrontEnd::Find(const Form& form) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(), [&form](const auto& window) {
    return &window->GetForm() == &form;
  });
  return found == windows_.end() ? nullptr : found->get();
}

FormWindow* Win32FrontEnd::FindWindowOf(HWND window) const {
  const HWND top = window == nullptr ? nullptr : GetAncestor(window, GA_ROOT);
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [top](const auto& other) { return other->Window() == top; });
  return top == nullptr || found == windows_.end() ? nullptr : found->get();
}

// The other windows first: one that is restored comes to the front.
void Win32FrontEnd::Show(Form& form) {
  Refresh();
  if (Find(form) == nullptr) {
    const HWND beside = windows_.empty() ? nullptr : windows_.front()->Window();
    FormHost& host = *this;
    windows_.push_back(std::make_unique<FormWindow>(form, host, program_folder_, beside));
    timers_.Add(form);
    form.Load();
  }
  FormWindow* window = Find(form);
  if (window == nullptr) return;  // its own Load event has closed it
  window->MakePeers();
  form.SetVisible(true);
  window->Refresh();
  if (form.State() == WindowState::kNormal) SetActiveWindow(window->Window());
  UpdateWindow(window->Window());
  last_pump_ms_ = 0;
}

void Win32FrontEnd::Unload(Form& form) {
  FormWindow* window = Find(form);
  if (window == nullptr || window->closing) return;
  window->closing = true;
  form.SetVisible(false);
  window->Refresh();
  timers_.Remove(form);
  form.Unload();
  // From here on the form may be gone.
  const auto place = std::find_if(windows_.begin(), windows_.end(),
                                  [window](const auto& other) { return other.get() == window; });
  window->Close();
  closed_.push_back(std::move(*place));
  windows_.erase(place);
}

void Win32FrontEnd::OnClose(Form& form) { Unload(form); }

void Win32FrontEnd::OnTaskBarMade() { notification_area_.AddAgain(); }

void Win32FrontEnd::SetForeground(Form& form) {
  FormWindow* window = Find(form);
  if (window == nullptr) return;
  window->Refresh();
  SetForegroundWindow(window->Window());
}

HWND Win32FrontEnd::WindowHandle(const Form& form) {
  const FormWindow* window = Find(form);
  return window == nullptr ? nullptr : window->Window();
}

HWND Win32FrontEnd::WindowOf(const Control& control) const {
  for (const auto& window : windows_) {
    if (&window->GetForm() == &control) return window->Window();
    if (const HWND inner = window->WindowOf(control)) return inner;
  }
  return nullptr;
}

// The platform's handles have 32 significant bits.
std::uint32_t Win32FrontEnd::IconHandle(const ImageBox& image) {
  const UniqueIcon& icon = icons_.emplace_back(LoadTrayIcon(image.PictureFile()));
  return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(icon.Get()));
}

double Win32FrontEnd::TwipsPerPixelX(const Form& form) {
  FormWindow* window = Find(form);
  return kTwipsPerInch /
         (window == nullptr ? kUsualDotsPerInch : window->GetResources().DotsPerInch());
}

HWND Win32FrontEnd::Owner() const {
  if (const FormWindow* active = FindWindowOf(GetActiveWindow())) return active->Window();
  for (const auto& window : windows_) {
    if (IsWindowVisible(window->Window()) != FALSE) return window->Window();
  }
  return nullptr;
}

template <class Box>
auto Win32FrontEnd::Modally(Box box) {
  Refresh();
  const ModalTimer timer([this] { RunTimerModally(); });
  const auto answer = box(Owner());
  last_pump_ms_ = 0;
  RethrowKept();
  return answer;
}

void Win32FrontEnd::ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) {
  Modally([&](HWND owner) { return ShowMessageBox(owner, text, title, icon, false); });
}

bool Win32FrontEnd::AskYesNo(std::string_view text, std::string_view title) {
  return Modally(
      [&](HWND owner) { return ShowMessageBox(owner, text, title, MessageIcon::kNone, true); });
}

std::string Win32FrontEnd::InputBox(std::string_view prompt, std::string_view title,
                                    std::string_view default_text) {
  return Modally([&](HWND owner) {
    Resources resources(program_folder_);
    if (FormWindow* window = FindWindowOf(owner)) {
      resources.SetDotsPerInch(window->GetResources().DotsPerInch());
    }
    return AskForText(owner, resources, prompt, title, default_text);
  });
}

std::string Win32FrontEnd::BrowseForFolder(std::string_view title) {
  return Modally([&](HWND owner) { return AskForFolder(owner, title); });
}

std::string Win32FrontEnd::AskSaveFile(std::string_view title, std::string_view name) {
  return Modally([&](HWND owner) { return AskForSaveFile(owner, title, name); });
}

void Win32FrontEnd::CopyText(std::string_view text) { CopyToClipboard(Owner(), text); }

void Win32FrontEnd::PopupMenu(Menu& menu) {
  const Control* form = &menu;
  while (form->Container() != nullptr) form = form->Container();
  const auto* owner = dynamic_cast<const Form*>(form);
  Refresh();
  const ModalTimer timer([this] { RunTimerModally(); });
  PopUp(owner == nullptr ? Owner() : WindowHandle(*owner), menu);
  last_pump_ms_ = 0;
  RethrowKept();
}

bool Win32FrontEnd::NotifyIcon(TrayMessage message, const TrayIcon& icon) {
  return notification_area_.Notify(message, icon);
}

void Win32FrontEnd::SetMousePointer(MousePointer pointer) {
  pointer_ = pointer;
  SetCursor(LoadCursorA(nullptr, pointer == MousePointer::kHourglass ? IDC_WAIT : IDC_ARROW));
}

void Win32FrontEnd::Beep() { MessageBeep(MB_OK); }

void Win32FrontEnd::End() { throw ProcessEnded{}; }

}  // namespace tidemark
