#pragma once

#include <windows.h>

#include <functional>
#include <map>

namespace tessaro {

/// Work that was handed to the host to be called later. It is owned here until the host calls it:
/// what the host hasn't called when the module ends is dropped, and a call that comes after that
/// does nothing. For such a call the library stays in the process while one is waited for.
class LaterCalls {
 public:
  LaterCalls() = default;
  LaterCalls(const LaterCalls&) = delete;
  LaterCalls& operator=(const LaterCalls&) = delete;

  /// Hands work to the host for the application's context
  /// (AcApDocManager::executeInApplicationContext), where documents can be opened. It runs when the
  /// host has left the command, or at once; a failure in it is told to the user.
  /// @throws _com_error E_OUTOFMEMORY; nothing is handed over then
  void inApplicationContext(std::function<void()> work);

  /// Drops what the host hasn't called.
  void drop() { waiting.clear(); }

 private:
  using Ticket = UINT_PTR;

  /// What the host calls.
  static void called(void* ticket);
  void run(Ticket ticket);

  std::map<Ticket, std::function<void()>> waiting;
  Ticket last = 0;
};

}  // namespace tessaro
