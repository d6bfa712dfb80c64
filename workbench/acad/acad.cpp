#include <filesystem>
#include <string>

#include "core/Text.h"
#include "core/Transcript.h"
#include "desk/Desk.h"
#include "scripting/Directives.h"
#include "scripting/Programs.h"
#include "scripting/Session.h"
#include "scripting/SessionFiles.h"

namespace wb {
namespace {

constexpr char usage[] =
    "acad [--module FILE] [--script FILE] [--interactive] [--desk] [--work FOLDER] [--keep]\n"
    "     [--drawings FOLDER] [--timeout SECONDS]\n"
    "\n"
    "Runs a script in the stand-in host, prints the transcript, and ends with 0 if all went well,\n"
    "1 if the script failed, 2 for a wrong command line, 3 after a timeout.\n"
    "\n"
    "  --module FILE      the module that @load loads (TessaroAcad.arx beside the program)\n"
    "  --script FILE      the script; @load stands in it, nothing is loaded before\n"
    "  --interactive      loads the module if no script is given, then takes lines from the\n"
    "                     standard input; boxes wait for the person\n"
    "  --desk             the same, but the window gets a menu and a command line for the person\n"
    "  --work FOLDER      the session's folder, %WORK% in scripts; emptied at the start\n"
    "  --keep             nothing is emptied: the store and the settings of the last run stay\n"
    "  --drawings FOLDER  %DRAWINGS% in scripts\n"
    "  --timeout SECONDS  for the script, 0 for none (60)\n";

int run(const SessionOptions& options, const std::wstring& scriptFile, bool atDesk) {
  if (scriptFile.empty() && !options.interactive) {
    throw UsageError("--script, --interactive or --desk is needed");
  }
  std::string script;
  if (!scriptFile.empty()) {
    const std::wstring file = windowsPath(scriptFile);
    if (!std::filesystem::exists(file)) {
      throw UsageError("the script can't be read: " + toUtf8(file));
    }
    script = bytesOf(file);
  }
  Session session(options);
  bool ok = scriptFile.empty() ? session.load() : session.run(script);
  if (ok && atDesk) {
    Desk desk(session.context());
    session.interact(desk);
  } else if (ok && options.interactive) {
    session.interact(*makeConsole(session.context()));
  }
  // An error that a person was shown was his own; what leaked, never.
  const size_t problems = Transcript::instance().problems();
  session.end();
  const bool leaked = Transcript::instance().anySince(
      0, [](const Event& event) { return event.kind == Event::leak; });
  return ok && !leaked && Transcript::instance().problems() == problems ? 0 : 1;
}

}  // namespace
}  // namespace wb

int main() {
  using namespace wb;
  SessionOptions session = optionsOfBuild(std::filesystem::temp_directory_path() / L"acad", {});
  session.echo = true;
  std::wstring script;
  bool atDesk = false;
  return runProgram("acad", usage,
                    {{L"--module", &session.module},
                     {L"--script", &script},
                     {L"--work", &session.workFolder},
                     {L"--drawings", &session.drawings},
                     {L"--timeout", &session.timeoutSeconds},
                     {L"--interactive", &session.interactive},
                     {L"--desk", &atDesk},
                     {L"--keep", &session.keep}},
                    [&] {
                      session.interactive |= atDesk;
                      return run(session, script, atDesk);
                    });
}
