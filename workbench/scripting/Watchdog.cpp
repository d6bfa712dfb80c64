#include "scripting/Watchdog.h"

#include <windows.h>

#include <chrono>
#include <cstdio>

namespace wb {

Watchdog::Watchdog(unsigned seconds, std::function<std::string()> where) : where(std::move(where)) {
  if (seconds > 0) thread = std::thread(&Watchdog::watch, this, seconds);
}

Watchdog::~Watchdog() {
  {
    const std::lock_guard lock(mutex);
    over = true;
  }
  ended.notify_one();
  if (thread.joinable()) thread.join();
}

void Watchdog::watch(unsigned seconds) {
  std::unique_lock lock(mutex);
  if (ended.wait_for(lock, std::chrono::seconds(seconds), [this] { return over; })) return;
  std::printf("error: timed out after %u s%s\n", seconds, where().c_str());
  std::fflush(stdout);
  // No destructors: they would wait for the thread that hangs.
  TerminateProcess(GetCurrentProcess(), 3);
}

}  // namespace wb
