// Colours as the design data of forms writes them: 0x00BBGGRR, or 0x80000000 plus the number of a
// system colour. Self-drawn controls turn them into plain ones here; front ends ask the system.
#pragma once

#include "toolkit/canvas.h"

namespace tidemark {

using OleColor = unsigned;

// The plain colour 0x00BBGGRR of any of the two forms. System colours are those of the platform's
// standard theme; a number that names none gives black.
OleColor PlainColor(OleColor color);

// The same as a pixel, 0x00RRGGBB.
Pixel PixelOf(OleColor color);

}  // namespace tidemark
