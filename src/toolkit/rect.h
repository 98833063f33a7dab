// A rectangle of pixels on a Canvas: left and top lie inside, right and bottom just outside, as in
// the platform's own rectangles.
#pragma once

namespace tidemark {

struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool operator==(const Rect&) const = default;
};

}  // namespace tidemark
