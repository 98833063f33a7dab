// Panels and lists lie over each other: what a person can't see, nobody can reach.
#pragma once

#include "toolkit/control.h"

namespace tidemark {

// Whether a visible panel or list in front of the control, or in front of a panel that holds it,
// hides all of it. A control without a size is never covered.
bool IsCovered(const Control& control);

// Whether the control lies beyond the edge of what holds it; a sliver that is left shows nothing.
// One without a size lies nowhere else.
bool LiesOutside(const Control& control);

// Whether a person who looks at the window can see the control.
bool CanBeSeen(const Control& control);
// The same, and it and all that holds it are enabled.
bool CanBeReached(const Control& control);

}  // namespace tidemark
