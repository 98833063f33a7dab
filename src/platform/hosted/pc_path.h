// Paths of the PC as text: the platform's rules of what a path means and which can be none (Windows
// documentation, "Naming Files, Paths, and Namespaces").
#pragma once

#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark::hosted {

struct PcPath {
  std::string text;   // "C:\Folder\File"; a drive's root is "C:\"
  std::string upper;  // the same in capitals, by which it is looked up
  bool ends_in_backslash = false;
};

// Makes a full path of any path: forward slashes, doubled separators, "." and "..", trailing blanks
// and dots, relative paths and those of a drive ("C:x"). Gives ERROR_SUCCESS, or the status that
// every file call answers to a path that can be none; `result`, whose memory is used again, is then
// undefined.
LONG NormalisePath(std::string_view path, std::string_view current_folder, PcPath& result);

// The capital letter of the drive that the path is on; 0 for one on no drive.
char DriveOf(std::string_view path, std::string_view current_folder);

// What stands behind the last backslash.
inline std::string_view LastName(std::string_view path) {
  return path.substr(path.find_last_of('\\') + 1);
}

// Whether a path can end in the name and still mean it: no separators or wild cards in it, no blank
// or dot at its end. The host may hold others.
bool IsPcName(std::string_view name);

}  // namespace tidemark::hosted
