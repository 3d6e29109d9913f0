#include "refhost/document/HostRun.h"

namespace refhost {

namespace {

HostRun gIdle;
HostRun* gCurrent = &gIdle;

}  // namespace

HostRun& HostRun::Current() { return *gCurrent; }

HostRun::Scope::Scope(HostRun& run) : fPrevious(gCurrent) { gCurrent = &run; }

HostRun::Scope::~Scope() { gCurrent = fPrevious; }

}  // namespace refhost
