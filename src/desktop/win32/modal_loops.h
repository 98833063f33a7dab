// A modal box runs its own message loop, and no exception may cross the platform's one. Whoever
// keeps an exception for later asks here that the boxes return soon.
#pragma once

namespace tidemark {

// Ends every modal box and popup menu that this thread shows, as if the person had cancelled:
// message boxes (a question answers No), input boxes, folder dialogs. They return once their
// messages have been handled, so not before this function does. Nothing happens where none is
// shown.
void EndModalLoops();

}  // namespace tidemark
