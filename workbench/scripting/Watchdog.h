#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace wb {

/// Ends the process with the exit code 3 when it isn't destroyed within its time: nothing gentler
/// stops a thread that hangs inside a module. What `where` says is printed before that.
class Watchdog {
 public:
  /// 0 seconds: never. `where` is called on another thread.
  Watchdog(unsigned seconds, std::function<std::string()> where);
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;
  ~Watchdog();

 private:
  void watch(unsigned seconds);

  const std::function<std::string()> where;
  std::mutex mutex;
  std::condition_variable ended;
  bool over = false;
  std::thread thread;
};

}  // namespace wb
