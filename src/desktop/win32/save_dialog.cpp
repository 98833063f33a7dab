#include "desktop/win32/save_dialog.h"

#include <commdlg.h>

#include <algorithm>
#include <array>

#include "desktop/win32/message_boxes.h"
#include "platform/windows/wide_text.h"

namespace tidemark {

std::string AskForSaveFile(HWND owner, std::string_view title, std::string_view name) {
  std::array<wchar_t, 1024> path{};
  const std::wstring proposed = Wide(name);
  std::copy_n(proposed.begin(), std::min(proposed.size(), path.size() - 1), path.begin());
  const std::wstring caption = Wide(title);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner;
  dialog.lpstrTitle = caption.c_str();
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  dialog.lpstrFilter = L"Comma-separated values (*.csv)\0*.csv\0Web page (*.htm)\0*.htm;*.html\0";
  dialog.lpstrDefExt = L"csv";
  dialog.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
  if (GetSaveFileNameW(&dialog) == FALSE) return {};
  std::string chosen = Narrow(path.data());
  // The ending that was proposed stays in the field when the other kind is chosen.
  constexpr DWORD kWebPage = 2;
  if (dialog.nFilterIndex != kWebPage || !chosen.ends_with(".csv")) return chosen;
  chosen.replace(chosen.size() - 3, 3, "htm");
  // The dialog has asked about the other file.
  const bool is_there = GetFileAttributesW(Wide(chosen).c_str()) != INVALID_FILE_ATTRIBUTES;
  if (!is_there || ShowMessageBox(owner, chosen + " already exists.\r\nDo you want to replace it?",
                                  title, MessageIcon::kExclamation, /*yes_no=*/true)) {
    return chosen;
  }
  return {};
}

}  // namespace tidemark
