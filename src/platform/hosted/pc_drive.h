// A drive of the hosted PC, as a line of pc.ini describes it.
#pragma once

#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark::hosted {

struct PcDrive {
  UINT kind = DRIVE_FIXED;
  LONG status = ERROR_SUCCESS;  // what every look at the drive answers: ERROR_NOT_READY, or another
  std::string label;
  std::string share;  // "\\server\share" of a network drive; empty when it is not known
};

// Reads "network error=53 label=Papers share=\\server\share": the kind, and what else there is to
// say, in this order; "not ready" is the error 21. Gives what is wrong with it, and the drive is
// then untouched; or an empty text.
std::string ReadDrive(std::string_view text, PcDrive& drive);
// The text that ReadDrive reads.
std::string DriveText(const PcDrive& drive);

}  // namespace tidemark::hosted
