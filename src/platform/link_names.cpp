#include "platform/link_names.h"

#include "platform/letter_case.h"

namespace tidemark {

bool IsFullPath(std::string_view file) { return file.find(":\\") == 1 || file.starts_with("\\\\"); }

std::string LinkNameOf(std::string_view file) {
  std::string name(file.substr(file.find_last_of("\\/") + 1));
  if (UpperCase(name).ends_with(".LNK")) name.resize(name.size() - 4);
  return name;
}

}  // namespace tidemark
