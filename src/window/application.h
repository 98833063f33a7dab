// What the running program knows of itself.
#pragma once

#include <string>

namespace tidemark {

struct Application {
  // Of the build, as "2.1.0" and "2.1".
  static const char* const kVersion;
  static const char* const kMajorMinor;
  static const char* const kWebAddress;

  std::string folder;  // the program's folder, without a trailing backslash
  std::string title = "Tidemark";
  std::string executable = "tidemark";  // the file's name without its extension
  // Where the pages "/support.php" and "/tellafriend.php" are; empty: nowhere, and no control that
  // leads there is seen.
  std::string web_address = kWebAddress;
  bool previous_instance = false;  // another Tidemark was running when this one started
  bool elevated = false;           // it has an administrator's rights in full
};

// Folder and executable of the running program's file, a full path. A person may have renamed it.
Application ApplicationOf(const std::string& program_file);

}  // namespace tidemark
