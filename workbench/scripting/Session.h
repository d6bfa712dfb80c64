#pragma once

#include <filesystem>
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

/// The standard input as a command line: a thread of its own waits for the lines, so that the
/// windows stay alive meanwhile, and the operator runs them on the host's thread until the input
/// ends or the host is asked to quit. A line that is wrong is reported as an error.
std::unique_ptr<Operator> makeConsole(ScriptContext& context);

/// Enters the stand-in client in the registry as an installation would, or removes it. Its library
/// stays loaded: a process has many sessions, one after the other.
/// @param file the client's library
/// @throws std::runtime_error if there is none, or it fails
void registerClient(const std::wstring& file, bool present);

/// What one run of the workbench is made of. All paths are Windows paths.
struct SessionOptions {
  std::wstring module;           ///< the .arx that load() and `@load` without a name load
  std::wstring client;           ///< TessaroClient.dll; empty: none is registered
  std::wstring workFolder;       ///< emptied at the start; `%WORK%` in scripts
  std::wstring drawings;         ///< `%DRAWINGS%` in scripts; may be empty
  bool echo = false;             ///< the transcript also goes to stdout line by line
  unsigned timeoutSeconds = 60;  ///< for each script run; 0 for none
  bool interactive = false;      ///< boxes without a queued answer are left to the person
  bool keep = false;             ///< the work folder, the store and the settings stay as they are
  bool accountForMemory = true;  ///< what the client allocates is watched until it is freed
};

/// A session with the module and the client that lie beside the program.
SessionOptions optionsOfBuild(const std::filesystem::path& workFolder,
                              const std::filesystem::path& drawings);

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
  /// `leak` was reported, an @expect didn't hold, a box had no answer, an answer was not used. The
  /// line that failed is reported as an `error` with its number, and the rest isn't run. Input
  /// typed, answers and picks don't outlive the run; marks do. A run longer than
  /// options.timeoutSeconds ends the process with the exit code 3.
  bool run(std::string_view utf8Script);
  /// Lets somebody work at the host.
  void interact(Operator& person);
  /// What an operator's directives run in.
  ScriptContext& context();
  /// Closes the documents without asking, unloads the module, stops the host, reports what was not
  /// released as `leak` lines. The transcript can still be read afterwards.
  void end();

  /// The lines since the session's start, `kind: detail`.
  const std::vector<std::wstring>& transcript() const;
  /// Whether some line holds `text`.
  bool reported(std::wstring_view text) const { return count(text) > 0; }
  /// How many lines hold `text`.
  int count(std::wstring_view text) const;
  /// All lines, each with a line end: what a failing test shows.
  std::wstring text() const;

 private:
  struct State;
  std::unique_ptr<State> state;
};

}  // namespace wb
