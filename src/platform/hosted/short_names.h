// The 8.3 names of files on a mounted disk, as its file system tells them.
#pragma once

#include <optional>
#include <string>

namespace tidemark::hosted {

// The short name of a file of the host; empty when it has none; no value where the file system does
// not tell. (ntfs-3g tells it in the extended attribute system.ntfs_dos_name.)
std::optional<std::string> ShortNameOf(const std::string& host_path);

// Asked instead, if not null: tests have no such file system.
extern std::optional<std::string> (*short_name_of)(const std::string& host_path);

}  // namespace tidemark::hosted
