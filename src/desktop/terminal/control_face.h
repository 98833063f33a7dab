// What a control shows of itself where there are no pictures: words, marks and percentages. Both
// ways to look at a window in a terminal take it from here.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "toolkit/controls.h"

namespace tidemark {

// The accessible name, without an access key.
std::string NameOf(const Control& control);

// What a push button says, a self-drawn one by the name that says more than its face, a menu's item
// by its caption; its access key stands behind an "&". Nothing for another control.
std::optional<std::string> ButtonCaption(const Control& control);

// The text that holds the control's access key behind an "&": a caption, or the accessible name.
std::string AccessKeyText(const Control& control);

// The mark of a check box or an option button, with the blank behind it; empty for another control.
std::string_view MarkOf(const Control& control);

// In percent, from 0 to 100; nothing for a control that is no progress bar. The program's own bar
// shows nothing before it has come off its start.
std::optional<int> PercentOf(const Control& control);

// A picture on a window itself that is a button: it leads to a page.
bool IsPageButton(const Control& control);
// A click area without a text of its own, over a picture.
bool IsTab(const Control& control);
// Of page buttons and tabs the one whose page is up.
bool IsChosen(const Control& control);

// What an image shows in words: nothing where it is there for the eye alone, or stands still. A
// film that runs says that work goes on.
std::string ImageText(const ImageBox& image);

// Whether the label says what the list beside it bears as its heading already.
bool IsHeadingOfList(const Label& label);

// What a control shows as its text, without access keys: a caption, a state, a percentage. Empty
// for a control that shows none.
std::string ControlText(const Control& control);

}  // namespace tidemark
