#include "desktop/win32/message_boxes.h"

#include <string>

namespace tidemark {
namespace {

UINT IconFlag(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kInformation:
      return MB_ICONINFORMATION;
    case MessageIcon::kExclamation:
      return MB_ICONEXCLAMATION;
    case MessageIcon::kCritical:
      return MB_ICONERROR;
    case MessageIcon::kNone:
      break;
  }
  return 0;
}

}  // namespace

bool ShowMessageBox(HWND owner, std::string_view text, std::string_view title, MessageIcon icon,
                    bool yes_no) {
  // A question is not answered with yes by an Enter too many; the platform gives it no way out.
  const UINT buttons = yes_no ? MB_YESNO | MB_DEFBUTTON2 : MB_OK;
  const int answer = MessageBoxA(owner, std::string(text).c_str(), std::string(title).c_str(),
                                 buttons | IconFlag(icon));
  return answer == IDYES || answer == IDOK;
}

}  // namespace tidemark
