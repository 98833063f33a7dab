#include "desktop/win32/modal_loops.h"

#include <array>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark {
namespace {

// The class of all the platform's dialogs.
constexpr std::string_view kDialogClass = "#32770";

BOOL CALLBACK CancelDialog(HWND window, LPARAM /*unused*/) {
  std::array<char, 16> name{};
  GetClassNameA(window, name.data(), static_cast<int>(name.size()));
  if (kDialogClass != name.data()) return TRUE;
  PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
  // A box with Yes and No alone can't be cancelled.
  PostMessageA(window, WM_COMMAND, IDNO, 0);
  return TRUE;
}

}  // namespace

void EndModalLoops() {
  EndMenu();
  EnumThreadWindows(GetCurrentThreadId(), CancelDialog, 0);
}

}  // namespace tidemark
