// Putting a new file in an old one's place so that a pulled plug leaves one of the two whole.
#pragma once

#include <filesystem>

namespace tidemark::hosted {

// Gives the new file, which lies in the same folder, the old one's permissions, brings it to the
// disk and then under the old one's name. Throws HostedPcError; the new file is then gone, and the
// old one what it was.
void ReplaceFile(const std::filesystem::path& fresh, const std::filesystem::path& target);

// Called, if not null, when the new file stands beside the old one: tests pull the plug there.
extern void (*before_rename)();

}  // namespace tidemark::hosted
