// The colours of the program's own painting: black on white, or those of the system where a person
// has chosen high contrast or light letters on dark windows.
#pragma once

#include "platform/winapi.h"

namespace tidemark {

// Whether the program's own colours and pictures step back: the common controls go by the system's,
// and a text must not come to stand on a background that was not meant for it.
bool SystemColorsOnly();
COLORREF PanelColor();
COLORREF PanelTextColor();
// A hairline around panels and lists.
COLORREF BorderColor();
// A control's colour as design data writes it: 0x00BBGGRR, or a system colour's number with the top
// bit set. White is the panels' colour and black that of their texts, as is any other one where
// only the system's colours count.
COLORREF ColorOf(unsigned color);

void FillWith(HDC context, const RECT& area, COLORREF color);

}  // namespace tidemark
