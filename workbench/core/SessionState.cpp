#include "core/SessionState.h"

namespace wb {

// The only state outside the session's object, but for what belongs to the process: the classes'
// descriptions, the allocator's spy, the exported `s_pServices`, the client's DllCanUnloadNow.
static SessionState* theCurrent = nullptr;

SessionState::SessionState() : previous(std::exchange(theCurrent, this)) {}

SessionState::~SessionState() {
  while (!parts.empty()) parts.pop_back();
  theCurrent = previous;
}

SessionState* SessionState::current() { return theCurrent; }

SessionState& SessionState::get() {
  if (!theCurrent) throw std::logic_error("there is no session");
  return *theCurrent;
}

}  // namespace wb
