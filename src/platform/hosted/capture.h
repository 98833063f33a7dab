// Making an ordinary hosted PC of another PC: the parts that need the registry understood. The
// rest, the files, is tools/capture-pc.
#pragma once

#include <iosfwd>
#include <string_view>

namespace tidemark::hosted {

// Writes the pc.ini of a PC with that registry export, in any of the forms that are read, and those
// drives ("CD"). The user is the one who was logged on, else the first.
void CaptureSettings(std::string_view registry_export, std::string_view drives, std::ostream& out);

}  // namespace tidemark::hosted
