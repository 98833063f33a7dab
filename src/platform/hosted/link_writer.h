// Writes the bytes of a shell link file.
#pragma once

#include <string>

#include "platform/link_file.h"

namespace tidemark::hosted {

// The same link with 16-bit string data, its target in the link info: local_path or, where that is
// empty, network_path; no item list and no extra blocks.
std::string FormatLinkFile(const LinkFile& link);

}  // namespace tidemark::hosted
