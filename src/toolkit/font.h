// The face of a text: Tahoma, or the nearest that a front end has.
#pragma once

namespace tidemark {

struct Font {
  int tenths_of_points = 83;  // 8.25 points, the platform's usual size
  bool bold = false;
  bool operator==(const Font&) const = default;
};

}  // namespace tidemark
