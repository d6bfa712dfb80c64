#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wb {

struct ScriptContext;

/// Somebody who sits at the host.
class Operator {
 public:
  Operator() = default;
  Operator(const Operator&) = delete;
  Operator& operator=(const Operator&) = delete;
  virtual ~Operator() = default;

  /// Works until he leaves.
  virtual void run() = 0;
  /// A prompt waits: types something for it. False if he cancels it.
  virtual bool supplyInput() = 0;
};

/// What one run of the workbench is made of. All paths are Windows paths.
struct SessionOptions {
  std::wstring module;           ///< the .arx that load() and `@load` without a name load
  std::wstring client;           ///< TessaroClient.dll; empty: none is registered
  std::wstring workFolder;       ///< emptied at the start; `%WORK%` in scripts
  std::wstring drawings;         ///< `%DRAWINGS%` in scripts; may be empty
  bool echo = false;             ///< the transcript also goes to stdout as it is told
  unsigned timeoutSeconds = 60;  ///< for each script run; 0 for none
  bool interactive = false;      ///< boxes without a queued answer are left to the person
  bool keep = false;             ///< the work folder, the store and the settings stay as they are
  bool accountForMemory = true;  ///< what the client hands out is watched until it is freed
};

/// One run of the stand-in host with its store, settings and client, from a clean start to a clean
/// end. Only one exists at a time, on the thread that made it; many may follow one another in a
/// process. While it lives, boxes and dialogs of the thread are answered (Answers.h).
class Session {
 public:
  /// Deletes the add-in's and the client's settings, empties the work folder, opens a new store in
  /// its `store` folder, registers the client and starts the host.
  /// No module is loaded yet. Raises std::runtime_error with a clear text if any of it can't be
  /// done. A work folder that holds something and was not made by a session is never emptied.
  explicit Session(SessionOptions options);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  /// end(), if it hasn't been called.
  ~Session();

  /// Loads options.module; false with an `error` line if that can't be done.
  bool load();
  /// Unloads the module; false if none is loaded or the host refuses.
  bool unload();
  /// Runs a UTF-8 script from its first to its last line. False when it failed: an `error` or a
  /// `leak` line was told, an @expect didn't hold, a box had no answer, an answer was not used.
  /// The line that failed is told as an `error` with its number, and the rest isn't run. Input
  /// typed, answers and picks don't outlive the run; marks do. A run longer than
  /// options.timeoutSeconds ends the process with the exit code 3.
  bool run(std::string_view utf8Script);
  /// Takes lines from the standard input, typed or directives, while the windows live, until the
  /// input ends or the person quits the host. An error is told and the next line is taken.
  void interact();
  /// Lets somebody else work at the host instead.
  void interact(Operator& person);
  /// What an operator's directives run in.
  ScriptContext& context();
  /// Closes the documents without asking, unloads the module, stops the host, tells what was not
  /// given back as `leak` lines. The transcript can still be read afterwards.
  void end();

  /// The lines told since the session's start, `kind: detail`.
  const std::vector<std::wstring>& transcript() const;
  /// Whether some line holds `text`.
  bool told(std::wstring_view text) const;
  /// How many lines hold `text`.
  int count(std::wstring_view text) const;
  /// All lines, each with a line end: what a failing test shows.
  std::wstring text() const;

 private:
  struct State;
  std::unique_ptr<State> state;
};

}  // namespace wb
