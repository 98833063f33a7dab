#include "platform/single_instance.h"

#include "platform/hosted/hosted_pc.h"

namespace tidemark {

// The PC's own lock says it: it is held from before the registry is read until it has been written.
struct SingleInstance::Lock {};

SingleInstance::SingleInstance() = default;
SingleInstance::~SingleInstance() = default;

bool SingleInstance::AnotherIsRunning() const { return !hosted::HostedPc::Current().IsSoleUser(); }

}  // namespace tidemark
