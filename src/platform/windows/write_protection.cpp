#include "platform/write_protection.h"

namespace tidemark {

// The running PC's own disk can be written.
std::string WhyNothingCanBeChanged() { return {}; }

}  // namespace tidemark
