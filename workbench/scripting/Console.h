#pragma once

#include <windows.h>

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "scripting/Directives.h"
#include "scripting/Session.h"

namespace wb {

/// The standard input as a command line: a thread of its own waits for the lines, so that the
/// windows stay alive meanwhile, and this object runs them on the host's thread.
class Console : public Operator {
 public:
  explicit Console(ScriptContext& context);

  /// Runs lines and window messages until the input ends or the host is asked to quit.
  void run() override;
  /// For a prompt that waits: types the next plain line. False if the input has ended.
  bool supplyInput() override;

 private:
  struct Lines;

  /// The next line, after window messages; nothing when the input has ended or the host quits.
  std::optional<std::wstring> nextLine(bool commandWaits);
  /// Runs a line; false if it was wrong, which is told.
  bool runLine(const std::wstring& line, bool commandWaits);

  ScriptContext& context;
  /// Shared with the reading thread, which may outlive this object: nothing can wake it.
  std::shared_ptr<Lines> lines;
};

}  // namespace wb
