#include "desktop/win32/input_box.h"

#include <algorithm>
#include <utility>

#include "desktop/win32/gdi_objects.h"
#include "desktop/win32/late_call.h"
#include "desktop/win32/window_metrics.h"
#include "platform/windows/wide_text.h"

namespace tidemark {
namespace {

// Pixels at 96 dots per inch.
constexpr int kMargin = 11;
constexpr int kGap = 7;
constexpr int kContentWidth = 360;
constexpr int kEditHeight = 23;
constexpr int kButtonWidth = 75;
constexpr int kButtonHeight = 23;

constexpr int kPromptId = 100;
constexpr int kEditId = 101;

// A dialog without controls: they are made in pixels, by the fonts of the display.
struct alignas(4) EmptyTemplate {
  DLGTEMPLATE header{
      DS_MODALFRAME | DS_3DLOOK | WS_POPUP | WS_CAPTION | WS_SYSMENU, 0, 0, 0, 0, 0, 0};
  WORD menu = 0;
  WORD window_class = 0;
  WORD title = 0;
};

class InputBox {
 public:
  InputBox(HWND owner, const Resources& resources, std::wstring prompt, std::wstring title,
           std::wstring default_text)
      : owner_(owner == nullptr ? nullptr : GetAncestor(owner, GA_ROOT)),
        resources_(resources.ProgramFolder()),
        prompt_(std::move(prompt)),
        title_(std::move(title)),
        text_(std::move(default_text)) {
    resources_.SetDotsPerInch(resources.DotsPerInch());
  }

  // Empty when it was cancelled.
  std::wstring Run();

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  INT_PTR OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
  void OnInit();
  void PumpUntilAnswered();

  void Make(const wchar_t* window_class, const wchar_t* text, DWORD style, DWORD extended_style,
            int id);
  void LayOut(HWND over);
  int PromptHeight(const RECT& work_area);
  int PlaceControls(int prompt_height);

  HWND owner_;
  Resources resources_;  // its own: the box may be moved to another display than its owner's
  std::wstring prompt_;
  std::wstring title_;
  std::wstring text_;
  HWND window_ = nullptr;
  bool answered_ = false;
};

std::wstring InputBox::Run() {
  const EmptyTemplate empty;
  if (CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &empty.header, owner_, Procedure,
                                 reinterpret_cast<LPARAM>(this)) == nullptr) {
    return {};
  }
  const bool disabled_here = owner_ != nullptr && EnableWindow(owner_, FALSE) == FALSE;
  ShowWindow(window_, SW_SHOW);
  PumpUntilAnswered();
  // The owner first: a disabled one can't become the active window when the box goes.
  if (disabled_here) EnableWindow(owner_, TRUE);
  if (window_ != nullptr) DestroyWindow(window_);
  return text_;
}

// Whatever ends the loop without an answer cancels.
void InputBox::PumpUntilAnswered() {
  MSG message{};
  while (!answered_ && window_ != nullptr) {
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
      PostQuitMessage(static_cast<int>(message.wParam));  // for the loop outside too
      break;
    }
    if (IsDialogMessageW(window_, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  if (!answered_) text_.clear();
}

INT_PTR CALLBACK InputBox::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, GWLP_USERDATA, lparam);
    auto* const box = reinterpret_cast<InputBox*>(lparam);  // NOLINT(performance-no-int-to-ptr)
    box->window_ = window;
    box->OnInit();
    return FALSE;  // the focus is set
  }
  const LONG_PTR data = GetWindowLongPtrW(window, GWLP_USERDATA);
  auto* const box = reinterpret_cast<InputBox*>(data);  // NOLINT(performance-no-int-to-ptr)
  return box == nullptr ? FALSE : box->OnMessage(message, wparam, lparam);
}

INT_PTR InputBox::OnMessage(UINT message, WPARAM wparam, LPARAM /*lparam*/) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wparam) != IDOK && LOWORD(wparam) != IDCANCEL) return FALSE;
      if (answered_) return TRUE;
      answered_ = true;
      if (LOWORD(wparam) == IDOK) {
        const HWND edit = GetDlgItem(window_, kEditId);
        text_.resize(static_cast<std::size_t>(GetWindowTextLengthW(edit)));
        GetWindowTextW(edit, text_.data(), static_cast<int>(text_.size()) + 1);
      } else {
        text_.clear();
      }
      return TRUE;
    case WM_DPICHANGED:
      resources_.SetDotsPerInch(LOWORD(wparam));
      LayOut(window_);
      return TRUE;
    case WM_DESTROY:
      window_ = nullptr;
      // The loop may be waiting for a message.
      PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
      return TRUE;
    default:
      return FALSE;
  }
}

void InputBox::OnInit() {
  // The box lays itself out; what the system would do for a dialog's template is in the way.
  const auto set_behavior =
      LateCall<decltype(&SetDialogDpiChangeBehavior)>("user32.dll", "SetDialogDpiChangeBehavior");
  if (set_behavior != nullptr) set_behavior(window_, DDC_DISABLE_ALL, DDC_DISABLE_ALL);

  SetWindowTextW(window_, title_.c_str());
  Make(L"STATIC", prompt_.c_str(), SS_NOPREFIX | SS_EDITCONTROL, 0, kPromptId);
  Make(L"EDIT", text_.c_str(), ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE, kEditId);
  Make(L"BUTTON", L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP, 0, IDOK);
  Make(L"BUTTON", L"Cancel", BS_PUSHBUTTON | WS_TABSTOP, 0, IDCANCEL);
  SendMessageW(window_, DM_SETDEFID, IDOK, 0);

  LayOut(owner_);
  SendDlgItemMessageW(window_, kEditId, EM_SETSEL, 0, -1);
  SetFocus(GetDlgItem(window_, kEditId));
}

void InputBox::Make(const wchar_t* window_class, const wchar_t* text, DWORD style,
                    DWORD extended_style, int id) {
  const auto id_as_menu = reinterpret_cast<HMENU>(static_cast<INT_PTR>(id));  // NOLINT
  CreateWindowExW(extended_style, window_class, text, style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
                  window_, id_as_menu, GetModuleHandleW(nullptr), nullptr);
}

// Makes the box as large as its contents, and puts it over the middle of a window, or of the
// display where that can't be seen.
void InputBox::LayOut(HWND over) {
  const HFONT font = resources_.FontOf({});
  for (const int id : {kPromptId, kEditId, IDOK, IDCANCEL}) {
    SendDlgItemMessageW(window_, id, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  }
  const int client_height = PlaceControls(PromptHeight(WorkAreaOf(over)));

  const RECT window = PlaceOnScreen(window_);
  RECT client{};
  GetClientRect(window_, &client);
  const int frame_width = window.right - window.left - client.right;
  const int frame_height = window.bottom - window.top - client.bottom;
  const SIZE size{resources_.Scaled(kContentWidth + 2 * kMargin) + frame_width,
                  client_height + frame_height};
  const bool is_seen = IsWindowVisible(over) != FALSE && IsIconic(over) == FALSE;
  const POINT corner = MiddleOf(is_seen ? PlaceOnScreen(over) : WorkAreaOf(over), size);
  SetWindowPos(window_, nullptr, corner.x, corner.y, size.cx, size.cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

// In pixels; never more than half of the display.
int InputBox::PromptHeight(const RECT& work_area) {
  const HDC context = GetDC(window_);
  RECT text{0, 0, resources_.Scaled(kContentWidth), 0};
  {
    const Selection selection(context, resources_.FontOf({}));
    DrawTextW(context, prompt_.c_str(), -1, &text,
              DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_EXPANDTABS | DT_NOPREFIX);
  }
  ReleaseDC(window_, context);
  return static_cast<int>(std::min(text.bottom, (work_area.bottom - work_area.top) / 2));
}

// The height of the box's inside.
int InputBox::PlaceControls(int prompt_height) {
  const int margin = resources_.Scaled(kMargin);
  const int gap = resources_.Scaled(kGap);
  const int width = resources_.Scaled(kContentWidth);
  const int button_width = resources_.Scaled(kButtonWidth);
  const int button_height = resources_.Scaled(kButtonHeight);
  const int edit_height = resources_.Scaled(kEditHeight);
  const int edit_top = margin + prompt_height + gap;
  const int button_top = edit_top + edit_height + margin;
  const int cancel_left = margin + width - button_width;
  const auto place = [this](int id, int left, int top, int the_width, int height) {
    SetWindowPos(GetDlgItem(window_, id), nullptr, left, top, the_width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  };
  place(kPromptId, margin, margin, width, prompt_height);
  place(kEditId, margin, edit_top, width, edit_height);
  place(IDOK, cancel_left - gap - button_width, button_top, button_width, button_height);
  place(IDCANCEL, cancel_left, button_top, button_width, button_height);
  return button_top + button_height + margin;
}

}  // namespace

std::string AskForText(HWND owner, const Resources& resources, std::string_view prompt,
                       std::string_view title, std::string_view default_text) {
  return Narrow(InputBox(owner, resources, Wide(prompt), Wide(title), Wide(default_text)).Run());
}

}  // namespace tidemark
