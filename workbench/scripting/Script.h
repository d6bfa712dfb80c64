#pragma once

#include <atomic>
#include <string>
#include <string_view>
#include <vector>

#include "core/Transcript.h"
#include "scripting/Directives.h"
#include "scripting/Session.h"

namespace wb {

/// One line of a script that isn't blank or a comment.
struct ScriptLine {
  unsigned number;
  std::wstring text;
};

/// The lines of a UTF-8 script (with or without a byte order mark, any line ends). A line begins
/// after its blanks; those at its end are kept on typed lines, where a blank may stand for Enter.
std::vector<ScriptLine> scriptLines(std::string_view utf8);

/// Runs the lines of a script in the host, and stops at the first that fails.
class Script : public Operator {
 public:
  Script(ScriptContext& context, std::vector<ScriptLine> lines)
      : context(context), lines(std::move(lines)) {}

  void run() override;
  /// Runs the next directives and types the plain line behind them. False at the end of the
  /// script, or if a directive failed.
  bool supplyInput() override;
  /// False, with an `error` line, if a line failed or an answer was left over.
  bool succeeded() const { return !failed; }
  /// The line being run, null between runs. May be asked from any thread.
  const ScriptLine* current() const { return running; }

 private:
  bool step(const ScriptLine& line, bool commandWaits);
  bool refuse(const ScriptLine& line, const std::wstring& why, Event::Cause cause = Event::other);
  void refuseUnusedAnswers();
  /// Reports what the watched module's COM initialisations have become since the last call: a
  /// command that ended by an exception leaves one behind, anything else is a leak.
  void checkApartments();

  ScriptContext& context;
  std::vector<ScriptLine> lines;
  size_t next = 0;
  std::atomic<const ScriptLine*> running{nullptr};
  bool failed = false;
  int apartments = 0;
  size_t eventsSeen = 0;
};

/// Runs one line, typed or a directive, and lets the host work until it is idle. Raises ScriptError
/// if the directive is wrong or what it asks for can't be done.
void runScriptLine(ScriptContext& context, const std::wstring& line, bool commandWaits);

}  // namespace wb
