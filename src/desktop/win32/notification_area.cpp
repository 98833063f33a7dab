#include "desktop/win32/notification_area.h"

#include <algorithm>
#include <iterator>

#include "desktop/win32/late_call.h"

namespace tidemark {
namespace {

// The platform's handles have 32 significant bits, and widen with their sign.
template <class Handle>
Handle Widened(std::uint32_t handle) {
  const auto bits = static_cast<std::intptr_t>(static_cast<std::int32_t>(handle));
  return reinterpret_cast<Handle>(bits);  // NOLINT(performance-no-int-to-ptr)
}

NOTIFYICONDATAA PlatformRecord(const TrayIcon& icon) {
  NOTIFYICONDATAA record{};
  // The short form, whose size here is not the 88 bytes of 32-bit handles.
  record.cbSize = NOTIFYICONDATAA_V1_SIZE;
  record.hWnd = Widened<HWND>(icon.hWnd);
  record.uID = icon.uID;
  record.uFlags = icon.uFlags;
  record.uCallbackMessage = icon.uCallbackMessage;
  record.hIcon = Widened<HICON>(icon.hIcon);
  std::copy(icon.szTip.begin(), icon.szTip.end(), std::begin(record.szTip));
  record.szTip[icon.szTip.size() - 1] = '\0';
  return record;
}

// A program with more rights than the shell gets no messages from it unless it asks for them.
void LetThrough(HWND window, UINT message) {
  const auto change_filter =
      LateCall<decltype(&ChangeWindowMessageFilterEx)>("user32.dll", "ChangeWindowMessageFilterEx");
  if (change_filter != nullptr) change_filter(window, message, MSGFLT_ALLOW, nullptr);
}

}  // namespace

UniqueIcon LoadTrayIcon(const std::string& icon_file) {
  return UniqueIcon(static_cast<HICON>(LoadImageA(nullptr, icon_file.c_str(), IMAGE_ICON,
                                                  GetSystemMetrics(SM_CXSMICON),
                                                  GetSystemMetrics(SM_CYSMICON), LR_LOADFROMFILE)));
}

UINT TaskbarCreatedMessage() {
  static const UINT message = RegisterWindowMessageA("TaskbarCreated");
  return message;
}

bool NotificationArea::Notify(TrayMessage message, const TrayIcon& icon) {
  NOTIFYICONDATAA record = PlatformRecord(icon);
  if (message == TrayMessage::kDelete) {
    added_.reset();
  } else {
    // Also when it fails: the shell may still be on its way, and asks when it is there.
    added_ = icon;
    LetThrough(record.hWnd, TaskbarCreatedMessage());
    LetThrough(record.hWnd, icon.uCallbackMessage);
  }
  return Shell_NotifyIconA(static_cast<DWORD>(message), &record) != FALSE;
}

void NotificationArea::AddAgain() {
  if (!added_) return;
  NOTIFYICONDATAA record = PlatformRecord(*added_);
  Shell_NotifyIconA(NIM_ADD, &record);
}

}  // namespace tidemark
