#pragma once

#include <windows.h>

#include <functional>
#include <map>

namespace tessaro {

/// Work that the host is to run later. It is owned here until the host calls it. Work that is still
/// waiting when the module ends is dropped, and a late call by the host does nothing; the library
/// stays loaded until that call.
class LaterCalls {
 public:
  LaterCalls() = default;
  LaterCalls(const LaterCalls&) = delete;
  LaterCalls& operator=(const LaterCalls&) = delete;

  /// Runs work in the application's context (AcApDocManager::executeInApplicationContext), where
  /// documents can be opened: when the current command has ended, or at once if there is none. An
  /// exception in it is reported in a box.
  /// @throws _com_error E_OUTOFMEMORY; the work won't run then
  void inApplicationContext(std::function<void()> work);

  /// Drops all waiting work.
  void drop() { waiting.clear(); }

 private:
  using Ticket = UINT_PTR;

  /// The host's callback.
  static void called(void* ticket);
  void run(Ticket ticket);

  std::map<Ticket, std::function<void()>> waiting;
  Ticket last = 0;
};

}  // namespace tessaro
