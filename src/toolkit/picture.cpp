#include "toolkit/picture.h"

#include "platform/file_system_object.h"

namespace tidemark {

void Picture::Load(const std::string& file) {
  if (FileSystemObject().FileExists(file)) file_ = file;
}

}  // namespace tidemark
