// What the running program knows of itself.
#pragma once

#include <string>

namespace tidemark {

struct Application {
  std::string folder;  // the program's folder, without a trailing backslash
  std::string title = "Tidemark";
  int major = 2;
  int minor = 1;
  std::string executable = "tidemark";  // the file's name without its extension
  bool previous_instance = false;       // another Tidemark was running when this one started
};

}  // namespace tidemark
