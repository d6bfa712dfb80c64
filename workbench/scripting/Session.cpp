#include "scripting/Session.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "core/Accounts.h"
#include "core/RegistrySettings.h"
#include "core/SessionState.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/Host.h"
#include "editor/LoadRecord.h"
#include "editor/Selection.h"
#include "faults/Faults.h"
#include "scripting/ClientLibrary.h"
#include "scripting/Console.h"
#include "scripting/Script.h"
#include "scripting/Watchdog.h"
#include "scripting/WorkFolder.h"
#include "store/Store.h"
#include "watch/ImportWatch.h"

namespace wb {
namespace {

std::wstring completePath(const std::wstring& path) {
  try {
    return path.empty() ? path : windowsPath(path);
  } catch (const ScriptError& error) {
    throw std::runtime_error(toUtf8(error.why));
  }
}

SessionOptions complete(SessionOptions options) {
  for (std::wstring* path :
       {&options.module, &options.client, &options.workFolder, &options.drawings}) {
    *path = completePath(*path);
  }
  if (options.workFolder.empty()) throw std::runtime_error("a session needs a work folder");
  return options;
}

void setUp(Transcript& transcript, const SessionOptions& options) {
  transcript.echo(options.echo);
  transcript.alias(options.workFolder, L"<work>");
  if (!options.drawings.empty()) transcript.alias(options.drawings, L"<drawings>");
  const std::filesystem::path programs = std::filesystem::path(options.client).parent_path();
  if (!programs.empty()) transcript.alias(programs.wstring(), L"<bin>");
}

/// What a prompt asks for while it lives.
class InputSource {
 public:
  explicit InputSource(std::function<bool()> source) {
    Host::instance().needInput = std::move(source);
  }
  InputSource(const InputSource&) = delete;
  InputSource& operator=(const InputSource&) = delete;
  ~InputSource() { Host::instance().needInput = nullptr; }
};

}  // namespace

struct Session::State {
  explicit State(SessionOptions given)
      : options(complete(std::move(given))), client(options.client), context{options, client, {}} {}

  const SessionOptions options;
  SessionState shared;
  ClientLibrary client;
  ScriptContext context;
  Ticket since = 0;
  bool ended = false;
  bool answersAny = false;  ///< what the last script asked for, which holds for the end as well
};

namespace {

/// A session begins by deleting the client's and the module's settings.
void requireWine() {
  if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")) return;
  throw std::runtime_error(
      "the workbench runs under Wine only: it would delete this computer's settings");
}

}  // namespace

Session::Session(SessionOptions options) {
  if (SessionState::current() && Host::instance().running()) {
    throw std::runtime_error("another session runs");
  }
  state = std::make_unique<State>(std::move(options));
  prepareWorkFolder(state->options.workFolder, state->options.keep);
  if (!state->options.keep) {
    requireWine();
    resetSettings();
    clearLoadRecord();
  }
  setUp(state->shared.transcript, state->options);
  if (!state->options.accountForMemory) state->shared.accounts.leaveMemoryOut();
  store().open(std::filesystem::path(state->options.workFolder) / L"store");
  if (state->client.isThere()) state->client.enter();
  state->since = nextTicket();
  Answers::instance().start(state->options.interactive);
  Host& host = Host::instance();
  host.onModuleMapped = [](HMODULE module) {
    watchImports(module);
    watchMemory(module);
  };
  host.onModuleLeaving = unwatchImports;
  host.start();
}

Session::~Session() {
  try {
    end();
  } catch (const std::exception& error) {
    tell(Event::error, fromUtf8(error.what()));
  }
}

void Session::end() {
  if (state->ended) return;
  state->ended = true;
  Host& host = Host::instance();
  // With the client gone, the documents' ends bring boxes up.
  if (state->answersAny) Answers::instance().answerAny(1);
  host.stop();
  clearFaults();
  host.runner().tellLeaks(state->since, true);
  Answers::instance().stop();
  store().close();
  // Nothing of the session stays behind in the registry for programs that come after it.
  if (state->client.isThere()) state->client.remove();
}

bool Session::load() { return Host::instance().loadModule(state->options.module); }

bool Session::unload() { return Host::instance().unloadModule(state->options.module); }

bool Session::run(std::string_view utf8Script) {
  const unsigned unanswered = Answers::instance().unanswered();
  Script script(state->context, scriptLines(utf8Script));
  const InputSource source([&] { return script.supplyInput(); });
  const Watchdog watchdog(state->options.timeoutSeconds, [&] {
    const ScriptLine* line = script.current();
    return line ? " in line " + std::to_string(line->number) + ": " + toUtf8(line->text)
                : std::string();
  });
  const bool succeeded = script.run();
  state->answersAny = Answers::instance().answersAny();
  Answers::instance().clear();
  Selection::instance().clear();
  return succeeded && Answers::instance().unanswered() == unanswered;
}

void Session::interact() {
  Console console(state->context);
  interact(console);
}

ScriptContext& Session::context() { return state->context; }

void Session::interact(Operator& person) {
  const InputSource source([&] { return person.supplyInput(); });
  person.run();
  Answers::instance().clear();
  Selection::instance().clear();
}

const std::vector<std::wstring>& Session::transcript() const {
  return state->shared.transcript.lines();
}

bool Session::told(std::wstring_view text) const { return count(text) > 0; }

int Session::count(std::wstring_view text) const {
  return static_cast<int>(std::count_if(
      transcript().begin(), transcript().end(),
      [&](const std::wstring& line) { return line.find(text) != std::wstring::npos; }));
}

std::wstring Session::text() const {
  std::wstring all;
  for (const std::wstring& line : transcript()) all += line + L'\n';
  return all;
}

}  // namespace wb
