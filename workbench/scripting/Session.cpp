#include "scripting/Session.h"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <future>
#include <stdexcept>

#include "core/Accounts.h"
#include "core/Program.h"
#include "core/RegistrySettings.h"
#include "core/ResultCodes.h"
#include "core/SessionState.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/Host.h"
#include "editor/LoadRecord.h"
#include "editor/Selection.h"
#include "faults/Faults.h"
#include "scripting/Script.h"
#include "scripting/SessionFiles.h"
#include "store/Store.h"
#include "watch/ImportWatch.h"

namespace wb {
namespace {

SessionOptions complete(SessionOptions options) {
  for (std::wstring* path :
       {&options.module, &options.client, &options.workFolder, &options.drawings}) {
    if (!path->empty()) *path = windowsPath(*path);
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

/// Ends the process with the exit code 3 when it isn't destroyed within its time: nothing gentler
/// stops a thread that hangs inside a module.
class Watchdog {
 public:
  /// @param seconds 0 for never
  /// @param where called on another thread; what it returns is printed before the end
  Watchdog(unsigned seconds, std::function<std::string()> where) {
    if (seconds == 0) return;
    watching =
        std::async(std::launch::async, [seconds, where = std::move(where), end = end.get_future()] {
          if (end.wait_for(std::chrono::seconds(seconds)) == std::future_status::ready) return;
          std::printf("error: timed out after %u s%s\n", seconds, where().c_str());
          std::fflush(stdout);
          // No destructors: they would wait for the thread that hangs.
          TerminateProcess(GetCurrentProcess(), 3);
        });
  }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;
  ~Watchdog() { end.set_value(); }

 private:
  std::promise<void> end;
  std::future<void> watching;
};

/// A session begins by deleting the client's and the module's settings.
void requireWine() {
  if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")) return;
  throw std::runtime_error(
      "the workbench runs under Wine only: it would delete this computer's settings");
}

}  // namespace

void registerClient(const std::wstring& file, bool present) {
  HMODULE library = file.empty() ? nullptr : LoadLibraryW(file.c_str());
  if (!library || !GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, file.c_str(), &library)) {
    throw std::runtime_error("the client \"" + toUtf8(file) + "\" can't be loaded, Windows error " +
                             std::to_string(GetLastError()));
  }
  const char* const function = present ? "DllRegisterServer" : "DllUnregisterServer";
  using Register = HRESULT(STDAPICALLTYPE*)();
  const auto address = reinterpret_cast<void*>(GetProcAddress(library, function));
  const HRESULT result = address ? reinterpret_cast<Register>(address)() : E_NOINTERFACE;
  if (SUCCEEDED(result)) return;
  throw std::runtime_error(std::string("the client's ") + function + " failed with " +
                           toUtf8(resultName(result)));
}

SessionOptions optionsOfBuild(const std::filesystem::path& workFolder,
                              const std::filesystem::path& drawings) {
  SessionOptions options;
  options.module = programFolder() / L"TessaroAcad.arx";
  options.client = programFolder() / L"TessaroClient.dll";
  options.workFolder = workFolder;
  options.drawings = drawings;
  return options;
}

struct Session::State {
  explicit State(SessionOptions given)
      : options(complete(std::move(given))), context{options, {}} {}

  const SessionOptions options;
  SessionState shared;
  ScriptContext context;
  Ticket since = 0;
  bool ended = false;
  bool answersAny = false;  ///< what the last script asked for, which holds for the end as well
};

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
  if (!state->options.client.empty()) registerClient(state->options.client, true);
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
    report(Event::error, fromUtf8(error.what()));
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
  host.runner().reportLeaks(state->since, true);
  Answers::instance().stop();
  store().close();
  // No later program finds anything of the session in the registry.
  if (!state->options.client.empty()) registerClient(state->options.client, false);
}

bool Session::load() { return Host::instance().loadModule(state->options.module); }

bool Session::unload() { return Host::instance().unloadModule(state->options.module); }

bool Session::run(std::string_view utf8Script) {
  const unsigned unanswered = Answers::instance().unanswered();
  Script script(state->context, scriptLines(utf8Script));
  const Watchdog watchdog(state->options.timeoutSeconds, [&] {
    const ScriptLine* line = script.current();
    return line ? " in line " + std::to_string(line->number) + ": " + toUtf8(line->text)
                : std::string();
  });
  interact(script);
  return script.succeeded() && Answers::instance().unanswered() == unanswered;
}

void Session::interact(Operator& person) {
  struct InputSource {
    explicit InputSource(Operator& person) {
      Host::instance().needInput = [&person] { return person.supplyInput(); };
    }
    InputSource(const InputSource&) = delete;
    InputSource& operator=(const InputSource&) = delete;
    ~InputSource() { Host::instance().needInput = nullptr; }
  };
  const InputSource source(person);
  person.run();
  state->answersAny = Answers::instance().answersAny();
  Answers::instance().clear();
  Selection::instance().clear();
}

ScriptContext& Session::context() { return state->context; }

const std::vector<std::wstring>& Session::transcript() const {
  return state->shared.transcript.lines();
}

int Session::count(std::wstring_view text) const { return state->shared.transcript.count(text); }

std::wstring Session::text() const {
  std::wstring all;
  for (const std::wstring& line : transcript()) all += line + L'\n';
  return all;
}

}  // namespace wb
