#include <filesystem>
#include <string>

#include "core/Program.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "desk/Desk.h"
#include "scripting/Directives.h"
#include "scripting/Programs.h"
#include "scripting/Session.h"

namespace {

constexpr char usage[] =
    "acad [--module FILE] [--client FILE] [--script FILE] [--interactive] [--desk]\n"
    "     [--work FOLDER] [--keep] [--drawings FOLDER] [--timeout SECONDS]\n"
    "\n"
    "Runs a script in the stand-in host, prints the transcript, and ends with 0 if all went well,\n"
    "1 if the script failed, 2 for a wrong command line, 3 after a timeout.\n"
    "\n"
    "  --module FILE      the module that @load loads (TessaroAcad.arx beside the program)\n"
    "  --client FILE      the stand-in client (TessaroClient.dll beside the program)\n"
    "  --script FILE      the script; @load stands in it, nothing is loaded before\n"
    "  --interactive      loads the module if no script is given, then takes lines from the\n"
    "                     standard input; boxes wait for the person\n"
    "  --desk             the same, but the window gets a menu and a command line for the person\n"
    "  --work FOLDER      the session's folder, %WORK% in scripts; emptied at the start\n"
    "  --keep             nothing is emptied: the store and the settings of the last run stay\n"
    "  --drawings FOLDER  %DRAWINGS% in scripts (the project's sample drawings, if the program\n"
    "                     lies below its folder)\n"
    "  --timeout SECONDS  for the script, 0 for none (60)\n";

/// Those of the project that was built here; empty if the program lies elsewhere.
std::filesystem::path sampleDrawings() {
  for (std::filesystem::path folder = wb::programFolder(); folder.has_relative_path();
       folder = folder.parent_path()) {
    const std::filesystem::path drawings = folder / L"workbench" / L"drawings";
    if (std::filesystem::is_directory(drawings)) return drawings;
  }
  return {};
}

int run(const wb::SessionOptions& options, const std::wstring& scriptFile, bool atDesk) {
  if (scriptFile.empty() && !options.interactive) {
    throw wb::UsageError("--script, --interactive or --desk is needed");
  }
  std::string script;
  if (!scriptFile.empty()) {
    const std::wstring file = wb::windowsPath(scriptFile);
    if (!std::filesystem::exists(file)) {
      throw wb::UsageError("the script can't be read: " + wb::toUtf8(file));
    }
    script = wb::bytesOf(file);
  }
  wb::Session session(options);
  bool ok = scriptFile.empty() ? session.load() : session.run(script);
  if (ok && atDesk) {
    wb::Desk desk(session.context());
    session.interact(desk);
  } else if (ok && options.interactive) {
    session.interact(*wb::makeConsole(session.context()));
  }
  // An error that a person was shown was his own; what leaked, never.
  const size_t problems = wb::Transcript::instance().problems();
  session.end();
  const bool leaked = wb::Transcript::instance().anySince(
      0, [](const wb::Event& event) { return event.kind == wb::Event::leak; });
  return ok && !leaked && wb::Transcript::instance().problems() == problems ? 0 : 1;
}

}  // namespace

int main() {
  wb::SessionOptions session =
      wb::optionsOfBuild(std::filesystem::temp_directory_path() / L"acad", sampleDrawings());
  session.echo = true;
  std::wstring script;
  bool atDesk = false;
  return wb::runProgram("acad", usage,
                        {{L"--module", &session.module},
                         {L"--client", &session.client},
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
