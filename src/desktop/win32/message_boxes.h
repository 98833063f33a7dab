// The platform's plain message box, for notices and for questions with Yes and No.
#pragma once

#include <string_view>

#include "platform/winapi.h"
#include "toolkit/front_end.h"

namespace tidemark {

// Returns when the person has answered: true for OK and Yes. A question without a picture of its
// own gets the question mark.
bool ShowMessageBox(HWND owner, std::string_view text, std::string_view title, MessageIcon icon,
                    bool yes_no);

}  // namespace tidemark
