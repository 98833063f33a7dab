#include "window/application.h"

namespace tidemark {

const char* const Application::kVersion = TIDEMARK_VERSION;
const char* const Application::kMajorMinor = TIDEMARK_MAJOR_MINOR;
const char* const Application::kWebAddress = TIDEMARK_WEB_ADDRESS;

}  // namespace tidemark
