// Symbolic links of the host on a mounted disk of Windows: the junctions and links of the disk, as
// the file system's driver shows them.
#pragma once

#include <string>
#include <string_view>

#include "platform/hosted/drive_places.h"

namespace tidemark::hosted {

// The PC's path, in capitals, that a link leads to. `text` is what the host says of it: "C:\Users",
// "/??/C:/Users", a path that is relative to the link's folder ("C:\X\", in capitals), or one of
// the host. Empty when it leads to none of the drives, or can't be understood.
std::string TargetOfLink(std::string_view text, std::string_view folder, const DrivePlaces& places);

}  // namespace tidemark::hosted
