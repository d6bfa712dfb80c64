#include "gate/HostCall.h"

#include <string>

#include "core/Transcript.h"
#include "faults/Faults.h"

namespace wb {

HostCall::HostCall(const wchar_t* name, Sweep sweep)
    : name(name), refused_(FAILED(takeFault(name, sweep == swept))) {}

void HostCall::reportLackOfMemory() const {
  tell(Event::error, std::wstring(name) + L" lacks memory");
}

}  // namespace wb
