// Making an ordinary hosted PC of another PC: the parts that need the registry understood. The
// rest, the files, is tools/capture-pc.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string_view>

namespace tidemark::hosted {

class HostedPc;

// Writes the pc.ini of a PC with that registry export, in any of the forms that are read, and those
// drives ("CD"). The user is the one who was logged on, else the first.
void CaptureSettings(std::string_view registry_export, std::string_view drives, std::ostream& out);

// Writes registry.reg and pc.ini of a PC that is switched on into a folder that is there. Links of
// the registry become copies of what they lead to. The PC itself can't be stored any more. Throws
// HostedPcError.
void CapturePc(HostedPc& pc, const std::filesystem::path& folder);

}  // namespace tidemark::hosted
