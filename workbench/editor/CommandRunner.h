#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/Accounts.h"
#include "editor/InputQueue.h"

namespace wb {

struct Command;

/// Reads the input queue and runs commands, each in its own context: a session command in the
/// application's, any other in its document's and under a write lock.
class CommandRunner {
 public:
  /// Runs the input that is queued by now, and what is deferred behind it.
  void runQueued();
  /// Runs the next piece of input that can run, not newer than `last`. False if there was none.
  bool runNext(InputQueue::Number last);
  bool hasRunnable() const;

  /// Runs a command inside another one of the document, with its answers. False if the command
  /// isn't known or can't run in a document's context.
  bool runInside(Document* document, const std::wstring& name,
                 const std::vector<std::wstring>& answers);
  /// Runs work of the editor as a document's command.
  void run(const Command& command, Document* document);

  /// One answer for the command that runs now; asks the host's needInput when none is queued.
  InputQueue::Read ask(std::wstring& token);

  bool commandRuns() const { return depth > 0; }
  /// Tells, once, what was handed out since `since` and neither given back nor marked as kept.
  void tellLeaks(Ticket since, bool keptAsWell);

 private:
  void runTyped(const std::wstring& token, Document* document);
  void runInDocument(const Command& command, Document* document);

  int depth = 0;
  std::set<Ticket> told;
};

}  // namespace wb
