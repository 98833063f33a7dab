// The files that the program is shipped with, for a program's folder that has none.
#pragma once

#include <filesystem>

namespace tidemark {

// Copies the ignore list and the pictures into the folder of the host, as far as they are not
// there. What can't be copied is left out.
void CopyShippedFiles(const std::filesystem::path& folder);

}  // namespace tidemark
