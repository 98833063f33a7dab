// A picture: a plain one, or one that is a button because its clicks are handled.
#pragma once

#include "desktop/win32/clickable_peer.h"
#include "toolkit/controls.h"

namespace tidemark {

class ImagePeer : public ClickablePeer {
 public:
  ImagePeer(ImageBox& image, Resources& resources, HWND parent);

  void Refresh() override;
  void PaintOn(HDC context, const RECT& area) override;
  long Role() const override;

 private:
  void PaintName(HDC context, const RECT& area);

  ImageBox& image_;
  std::string picture_file_;
};

}  // namespace tidemark
