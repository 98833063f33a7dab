// How the program's own push button looks: its faces, its caption and its glyph.
#pragma once

#include "controls/ole_color.h"
#include "toolkit/bitmap.h"
#include "toolkit/canvas_control.h"

namespace tidemark {

// The numbers of the cells of the face artwork, from left to right.
enum class ButtonFace { kResting = 0, kPressed = 1, kDisabled = 2, kHover = 3, kRestingState1 = 4 };
inline constexpr int kButtonFaces = 5;

struct ButtonLook {
  ButtonFace face = ButtonFace::kResting;
  Text caption;
  OleColor caption_color = 0x000000;
  tidemark::Font font;
  Bitmap picture;
  Bitmap faces;  // empty: the built-in ones
  bool focused = false;
  Display display;
};

// Paints the whole button on the whole canvas.
void PaintButton(const ButtonLook& look, Canvas& canvas);

// Where the caption, `lbl`, stands on a canvas of that size: in the middle, but clear of the glyph.
Rect CaptionPlace(const ButtonLook& look, int width, int height);

// The strip of five cells that is used where there is no artwork.
const Bitmap& BuiltInButtonFaces();
// Whether a bitmap can be such a strip: five cells that have a middle.
bool IsFaceStrip(const Bitmap& bitmap);

}  // namespace tidemark
