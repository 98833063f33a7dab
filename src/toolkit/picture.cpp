#include "platform/file_system_object.h"
#include "toolkit/controls.h"
#include "toolkit/list_view.h"

namespace tidemark {

void ImageBox::LoadPicture(const std::string& file) {
  if (FileSystemObject().FileExists(file)) picture_file_ = file;
}

void ListView::LoadPicture(const std::string& file) {
  if (FileSystemObject().FileExists(file)) picture_file_ = file;
}

}  // namespace tidemark
