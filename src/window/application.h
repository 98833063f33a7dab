// What the running program knows of itself.
#pragma once

#include <string>

namespace tidemark {

struct Application {
  std::string folder;  // the program's folder, without a trailing backslash
  std::string title = "Tidemark";
  bool previous_instance = false;  // another Tidemark was running when this one started
};

}  // namespace tidemark
