// What the two Windows programs know of themselves when they start.
#pragma once

#include "platform/single_instance.h"
#include "window/application.h"

namespace tidemark {

// The program's folder is that of its file; it is made ready for a repair's undo files.
Application WindowsApplication(const SingleInstance& instance);

}  // namespace tidemark
