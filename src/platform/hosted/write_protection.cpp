#include "platform/write_protection.h"

#include "platform/hosted/hosted_pc.h"

namespace tidemark {

std::string WhyNothingCanBeChanged() { return hosted::HostedPc::Current().WhyReadOnly(); }

}  // namespace tidemark
