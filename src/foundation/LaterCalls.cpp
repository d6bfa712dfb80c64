#include "foundation/LaterCalls.h"

#include <acdocman.h>

#include <utility>

#include "foundation/AppContext.h"
#include "foundation/Border.h"

namespace tessaro {

namespace {

/// Adds a reference to this library.
/// @return null on failure
HMODULE keepLibrary() {
  HMODULE library = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<const wchar_t*>(&keepLibrary), &library);
  return library;
}

}  // namespace

void LaterCalls::inApplicationContext(std::function<void()> work) {
  const Ticket ticket = ++last;
  const HMODULE library = keepLibrary();
  try {
    waiting[ticket] = [work = std::move(work), library] {
      // Not the last reference: the host holds its own until the module is unloaded.
      if (library != nullptr) FreeLibrary(library);
      work();
    };
  } catch (...) {
    waiting.erase(ticket);
    if (library != nullptr) FreeLibrary(library);
    throw;
  }
  acDocManagerPtr()->executeInApplicationContext(called, reinterpret_cast<void*>(ticket));
}

void LaterCalls::called(void* ticket) {
  atBorder([ticket] {
    if (AppContext* app = currentApp()) app->laterCalls.run(reinterpret_cast<Ticket>(ticket));
  });
}

void LaterCalls::run(Ticket ticket) {
  // Removed first, since the work may add another call.
  const auto called = waiting.extract(ticket);
  if (called) called.mapped()();
}

}  // namespace tessaro
