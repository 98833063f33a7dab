// GetLocalTime, GetTickCount64 and Sleep on the hosted PC's clock.
#include "platform/hosted/clock.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_editor.h"
#include "platform/winapi.h"

using tidemark::hosted::HostedPc;

void GetLocalTime(SYSTEMTIME* time) { *time = HostedPc::Current().clock().LocalTime(); }

ULONGLONG GetTickCount64() { return HostedPc::Current().clock().Milliseconds(); }

void Sleep(DWORD milliseconds) {
  HostedPc& pc = HostedPc::Current();
  pc.clock().Sleep(milliseconds);
  pc.editor().CatchUp();
}
