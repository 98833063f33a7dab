#include "desktop/win32/form_window.h"

#include <array>
#include <utility>

#include "desktop/win32/buffered_paint.h"
#include "desktop/win32/colors.h"
#include "desktop/win32/guarded.h"
#include "desktop/win32/notification_area.h"
#include "desktop/win32/window_metrics.h"
// It wants the platform's headers before it.
#include <windowsx.h>

namespace tidemark {
namespace {

constexpr const char* kFormClass = "TidemarkForm";
constexpr int kProgramIcon = 1;  // the number of the resource
constexpr int kTwips = 1;        // Form::ScaleMode
constexpr double kTwipsPerInch = 1440;

struct FrameStyle {
  DWORD style;
  DWORD extended_style;
};

// By FormFrame.
constexpr std::array kFrameStyles = {
    FrameStyle{WS_POPUP, WS_EX_TOOLWINDOW},
    FrameStyle{WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX, WS_EX_CONTROLPARENT},
    FrameStyle{WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_CONTROLPARENT},
};

FrameStyle StyleOf(const Form& form) {
  FrameStyle style = kFrameStyles.at(static_cast<std::size_t>(form.Frame()));
  if (form.IsQuestion()) style.style &= ~DWORD{WS_SYSMENU};
  return style;
}

HICON ProgramIcon(int width_metric, int height_metric) {
  const HANDLE icon =
      LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(kProgramIcon), IMAGE_ICON,
                 GetSystemMetrics(width_metric), GetSystemMetrics(height_metric), LR_SHARED);
  return icon != nullptr ? static_cast<HICON>(icon) : LoadIconA(nullptr, IDI_APPLICATION);
}

const char* FormClass(WNDPROC procedure) {
  static const ATOM registered = [procedure] {
    WNDCLASSEXA window_class{};
    window_class.cbSize = sizeof(window_class);
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = GetModuleHandleA(nullptr);
    window_class.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    window_class.hIcon = ProgramIcon(SM_CXICON, SM_CYICON);
    window_class.hIconSm = ProgramIcon(SM_CXSMICON, SM_CYSMICON);
    window_class.lpszClassName = kFormClass;
    return RegisterClassExA(&window_class);
  }();
  static_cast<void>(registered);
  return kFormClass;
}

}  // namespace

FormWindow::FormWindow(Form& form, FormHost& host, const std::string& program_folder, HWND beside)
    : form_(form), host_(host), resources_(program_folder) {
  const FrameStyle style = StyleOf(form_);
  const bool is_owned = form_.Frame() == FormFrame::kDialog && beside != nullptr &&
                        IsWindowVisible(beside) != FALSE && IsIconic(beside) == FALSE;
  const HWND owner = is_owned ? beside : nullptr;
  window_ =
      CreateWindowExA(style.extended_style, FormClass(Procedure), "", style.style | WS_CLIPCHILDREN,
                      0, 0, 0, 0, owner, nullptr, GetModuleHandleA(nullptr), this);
  if (window_ == nullptr) return;
  resources_.SetDotsPerInch(DotsPerInchOf(window_));
  Place(owner);
  if (form_.Frame() == FormFrame::kWindow) task_bar_button_.emplace(window_);
}

FormWindow::~FormWindow() { Close(); }

void FormWindow::Place(HWND owner) {
  const SIZE size = OuterSize();
  const POINT corner = MiddleOf(owner == nullptr ? WorkAreaOf(owner) : PlaceOnScreen(owner), size);
  SetWindowPos(window_, nullptr, corner.x, corner.y, size.cx, size.cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
  scroller_.Fit(window_, PageSize());
}

SIZE FormWindow::PageSize() const {
  const RECT page = resources_.PixelsOf({0, 0, form_.Place().width, form_.Place().height});
  return {page.right, page.bottom};
}

SIZE FormWindow::OuterSize() const {
  const FrameStyle style = StyleOf(form_);
  const SIZE whole =
      OuterSizeOf(PageSize(), style.style, style.extended_style, resources_.DotsPerInch());
  return FormScroller::SizeWithin(WorkAreaOf(window_), whole);
}

void FormWindow::MakePeers() {
  if (window_ == nullptr || peers_) return;
  peers_ = std::make_unique<FormPeers>(form_, resources_, window_);
  keyboard_ = std::make_unique<FormKeyboard>(form_, *peers_, resources_);
}

HWND FormWindow::WindowOf(const Control& control) const {
  return peers_ ? peers_->WindowOf(control) : nullptr;
}

void FormWindow::Close() {
  if (window_ == nullptr) return;
  if (peers_) peers_->Abandon();
  SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
  task_bar_button_.reset();
  DestroyWindow(window_);
  window_ = nullptr;
}

void FormWindow::Refresh() {
  if (window_ == nullptr || !peers_) return;
  if (!(caption_ == form_.Caption())) {
    caption_ = form_.Caption();
    SetWindowTextA(window_, caption_.String().c_str());
  }
  if (topmost_ != form_.Topmost()) {
    topmost_ = form_.Topmost();
    SetWindowPos(window_, topmost_ ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  RefreshFrame();
  const bool is_seen = form_.Visible() && form_.State() == WindowState::kNormal;
  if (GetActiveWindow() == window_) keyboard_->NoteFocus();
  if (is_seen) peers_->Refresh();
  RefreshState();
  RefreshProgress();
  if (is_seen && GetActiveWindow() == window_) {
    keyboard_->KeepFocus();
    const HWND focus = GetFocus();
    if (focus != std::exchange(focus_seen_, focus) && scroller_.BringIntoView(window_, focus)) {
      RefreshPlaces();
    }
  }
}

// What the form holds moves in its window.
void FormWindow::RefreshPlaces() {
  peers_->Refresh();
  InvalidateRect(window_, nullptr, TRUE);
}

// A box that is shown may turn from a notice into a question.
void FormWindow::RefreshFrame() {
  constexpr LONG_PTR kSystemMenu = WS_SYSMENU;
  const LONG_PTR style = GetWindowLongPtrA(window_, GWL_STYLE);
  const LONG_PTR wanted = (style & ~kSystemMenu) | (LONG_PTR{StyleOf(form_).style} & kSystemMenu);
  if (style == wanted) return;
  SetWindowLongPtrA(window_, GWL_STYLE, wanted);
  SetWindowPos(window_, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void FormWindow::RefreshState() {
  if (visible_ == form_.Visible() && (!visible_ || state_ == form_.State())) return;
  const bool appears = !visible_;
  visible_ = form_.Visible();
  state_ = form_.State();
  if (!visible_) {
    ShowWindow(window_, SW_HIDE);
  } else if (state_ == WindowState::kMinimized) {
    ShowWindow(window_, appears ? SW_SHOWMINNOACTIVE : SW_MINIMIZE);
  } else {
    ShowWindow(window_, IsIconic(window_) != FALSE ? SW_RESTORE : SW_SHOW);
  }
}

void FormWindow::RefreshProgress() {
  if (!task_bar_button_) return;
  task_bar_button_->SetProgress(form_.Progress ? form_.Progress() : -1);
}

bool FormWindow::TakesKey(const MSG& message) {
  if (!keyboard_ || IsClosed()) return false;
  if (message.message == WM_KEYDOWN && message.wParam == VK_F1 && form_.Help.IsBound()) {
    form_.Help();
    return true;
  }
  return keyboard_->Takes(message);
}

void FormWindow::Forget() {
  if (peers_) peers_->Forget();
  if (window_ != nullptr) RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_NCCREATE) {
    const auto& creation = *reinterpret_cast<const CREATESTRUCTA*>(lparam);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation.lpCreateParams));
  }
  auto* form = reinterpret_cast<FormWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (form == nullptr || form->window_ == nullptr) {
    return DefWindowProcA(window, message, wparam, lparam);
  }
  return Guarded([=] { return form->OnMessage(window, message, wparam, lparam); });
}

LRESULT FormWindow::OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == TaskbarCreatedMessage()) {
    if (task_bar_button_) task_bar_button_->Forget();
    host_.OnTaskBarMade();
    return 0;
  }
  if (const Answer answer = Peer::HandBack(message, wparam, lparam)) return *answer;
  if (const Answer answer = OnFormMessage(message, wparam, lparam)) return *answer;
  return DefWindowProcA(window, message, wparam, lparam);
}

std::optional<LRESULT> FormWindow::OnFormMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_CLOSE:
      if (!form_.IsQuestion()) host_.OnClose(form_);  // Alt+F4 asks no frame
      return 0;
    case WM_ENDSESSION:
      if (wparam != FALSE) host_.OnClose(form_);
      return 0;
    case WM_ERASEBKGND:
      PaintBackground(reinterpret_cast<HDC>(wparam));
      return 1;
    case WM_MOUSEMOVE:
      OnMouseMove(wparam, lparam);
      return 0;
    case WM_SETCURSOR:
      if (host_.Pointer() != MousePointer::kHourglass || LOWORD(lparam) != HTCLIENT) return {};
      SetCursor(LoadCursorA(nullptr, IDC_WAIT));
      return TRUE;
    case WM_SIZE:
      OnSize(wparam);
      return 0;
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
      if (peers_ && scroller_.Scroll(window_, message, wparam)) RefreshPlaces();
      return 0;
    case WM_DPICHANGED:
      OnDotsPerInch(wparam, *reinterpret_cast<const RECT*>(lparam));
      return 0;
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      OnSystemChange(message, wparam, lparam);
      return {};
    default:
      return {};
  }
}

// Callbacks of a tray icon come the same way.
void FormWindow::OnMouseMove(WPARAM wparam, LPARAM lparam) {
  const auto in_unit = [this](int pixels) {
    return form_.ScaleMode() == kTwips ? pixels * kTwipsPerInch / resources_.DotsPerInch() : pixels;
  };
  const int button = ((wparam & MK_LBUTTON) != 0 ? 1 : 0) | ((wparam & MK_RBUTTON) != 0 ? 2 : 0) |
                     ((wparam & MK_MBUTTON) != 0 ? 4 : 0);
  const int shift = ((wparam & MK_SHIFT) != 0 ? 1 : 0) | ((wparam & MK_CONTROL) != 0 ? 2 : 0);
  form_.MouseMove(button, shift, in_unit(GET_X_LPARAM(lparam)), in_unit(GET_Y_LPARAM(lparam)));
}

// A person has minimised or restored the window.
void FormWindow::OnSize(WPARAM how) {
  if (how != SIZE_MINIMIZED && how != SIZE_RESTORED) return;
  state_ = how == SIZE_MINIMIZED ? WindowState::kMinimized : WindowState::kNormal;
  if (visible_) form_.SetState(state_);
}

void FormWindow::OnDotsPerInch(WPARAM wparam, const RECT& suggested) {
  resources_.SetDotsPerInch(HIWORD(wparam));
  Forget();
  const SIZE size = OuterSize();
  SetWindowPos(window_, nullptr, suggested.left, suggested.top, size.cx, size.cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
  scroller_.Fit(window_, PageSize());
  Refresh();
}

// The common controls hear of new colours from their parent alone.
void FormWindow::OnSystemChange(UINT message, WPARAM wparam, LPARAM lparam) {
  struct Forwarded {
    UINT message;
    WPARAM wparam;
    LPARAM lparam;
  } forwarded{message, wparam, lparam};
  if (message == WM_SYSCOLORCHANGE) {
    EnumChildWindows(
        window_,
        [](HWND child, LPARAM parameter) -> BOOL {
          const auto& to_send = *reinterpret_cast<const Forwarded*>(parameter);
          SendMessageA(child, to_send.message, to_send.wparam, to_send.lparam);
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&forwarded));
  }
  Forget();
}

void FormWindow::PaintBackground(HDC context) {
  RECT area{};
  GetClientRect(window_, &area);
  const SIZE page = PageSize();
  const POINT scrolled = resources_.Scrolled();
  const HBITMAP picture = resources_.PictureOf(form_.PictureFile(), page.cx, page.cy);
  if (picture != nullptr) {
    PaintBitmap(context, {-scrolled.x, -scrolled.y, page.cx - scrolled.x, page.cy - scrolled.y},
                picture);
  } else {
    FillWith(context, area, PanelColor());
  }
}

}  // namespace tidemark
