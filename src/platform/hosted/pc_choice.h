// What a person may choose about a hosted PC beside its folder.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace tidemark::hosted {

// About a mounted disk of Windows; the section [disk] of pc.ini holds the same.
struct DiskChoice {
  std::filesystem::path folder;  // where the disk is mounted
  std::string user;              // a name or SID; empty: who logged on last
  std::map<char, std::filesystem::path>
      drives;  // where other drives are mounted, by capital letter
  // Where the folder for settings and undo files is made; empty: $XDG_DATA_HOME/tidemark.
  std::filesystem::path data_folder;
  // Holds those itself, and what its pc.ini says goes over what the disk's registry says; empty
  // when no pc.ini named the disk.
  std::filesystem::path pc_folder;
};

}  // namespace tidemark::hosted
