// The platform's status for an error of the host's system.
#pragma once

#include "platform/winapi.h"

namespace tidemark::hosted {

// `error` is an errno value.
LONG StatusOfHostError(int error);

}  // namespace tidemark::hosted
