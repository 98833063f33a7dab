// The keyboard's rules in a form: which controls Tab stops at, among which the arrow keys go, which
// one has the focus first.
#pragma once

#include <vector>

#include "toolkit/controls.h"

namespace tidemark {

// Of a group of option buttons Tab reaches the chosen one, or the first when none is chosen; the
// arrow keys reach the others.
bool IsTabStop(const Control& control);

// The arrow keys go round among the options of one container, and among its labels: the tabs.
bool InOneGroup(const Control& left, const Control& right);

// The first of the controls that is a button of that kind, as CommandButton::Default; null for
// none.
CommandButton* FindButton(const std::vector<Control*>& controls,
                          bool (CommandButton::*wanted)() const);

// The default button, or the first control on a page, or the first of all. There has to be one.
Control& FirstFocus(const std::vector<Control*>& reachable);

}  // namespace tidemark
