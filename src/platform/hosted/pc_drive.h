// A drive of the hosted PC, as a line of pc.ini describes it.
#pragma once

#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark::hosted {

struct PcDrive {
  UINT kind = DRIVE_FIXED;
  bool ready = true;
  std::string label;
  std::string share;  // "\\server\share" of a network drive; empty when it is not known
};

// Reads "network not ready label=Papers share=\\server\share": the kind, and what else there is to
// say, in this order. Gives what is wrong with it, and the drive is then untouched; or an empty
// text.
std::string ReadDrive(std::string_view text, PcDrive& drive);
// The text that ReadDrive reads.
std::string DriveText(const PcDrive& drive);

}  // namespace tidemark::hosted
