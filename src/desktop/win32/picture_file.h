// Reading picture files (".jpg" and the like) and scaling them, by the platform's GDI+.
#pragma once

#include <memory>
#include <string>

#include "desktop/win32/gdi_objects.h"
#include "platform/winapi.h"

namespace tidemark {

class PictureFile {
 public:
  explicit PictureFile(const std::string& path);
  ~PictureFile();
  PictureFile(const PictureFile&) = delete;
  PictureFile& operator=(const PictureFile&) = delete;

  // In pixels; empty when the file can't be read.
  SIZE Size() const;
  // In another size, scaled smoothly; null when that fails.
  UniqueBitmap Scaled(int width, int height) const;

 private:
  struct Image;
  std::unique_ptr<Image> image_;
};

}  // namespace tidemark
