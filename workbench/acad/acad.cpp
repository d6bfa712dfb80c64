#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>

#include "core/Program.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "desk/Desk.h"
#include "scripting/Directives.h"
#include "scripting/Session.h"

namespace {

constexpr int exitOk = 0;
constexpr int exitFailed = 1;
constexpr int exitUsage = 2;

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

struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct CommandLine {
  wb::SessionOptions session;
  std::wstring script;
  bool desk = false;
};

unsigned seconds(const std::wstring& text) {
  wchar_t* end = nullptr;
  const unsigned long value = std::wcstoul(text.c_str(), &end, 10);
  if (text.empty() || *end || value > 86400)
    throw UsageError("--timeout needs a number of seconds");
  return static_cast<unsigned>(value);
}

CommandLine parse(int count, wchar_t** arguments) {
  CommandLine line;
  wb::SessionOptions& session = line.session;
  session.echo = true;
  std::wstring timeout = std::to_wstring(session.timeoutSeconds);
  const std::map<std::wstring, std::wstring*> values = {
      {L"--module", &session.module},     {L"--client", &session.client},
      {L"--script", &line.script},        {L"--work", &session.workFolder},
      {L"--drawings", &session.drawings}, {L"--timeout", &timeout}};
  const std::map<std::wstring, bool*> switches = {{L"--interactive", &session.interactive},
                                                  {L"--desk", &line.desk},
                                                  {L"--keep", &session.keep}};
  for (int at = 1; at < count; ++at) {
    const std::wstring name = arguments[at];
    if (switches.count(name)) {
      *switches.at(name) = true;
    } else if (!values.count(name)) {
      throw UsageError("unknown: " + wb::toUtf8(name));
    } else if (++at == count) {
      throw UsageError(wb::toUtf8(name) + " needs a value");
    } else {
      *values.at(name) = arguments[at];
    }
  }
  session.timeoutSeconds = seconds(timeout);
  if (line.desk) session.interactive = true;
  if (line.script.empty() && !session.interactive) {
    throw UsageError("--script, --interactive or --desk is needed");
  }
  return line;
}

/// Those of the project that was built here; empty if the program lies elsewhere.
std::wstring sampleDrawings(std::filesystem::path folder) {
  for (; folder.has_relative_path(); folder = folder.parent_path()) {
    const std::filesystem::path drawings = folder / L"workbench" / L"drawings";
    if (std::filesystem::is_directory(drawings)) return drawings;
  }
  return {};
}

void fillDefaults(CommandLine& line) {
  const std::filesystem::path programs = wb::programFolder();
  wb::SessionOptions& session = line.session;
  if (session.module.empty()) session.module = programs / L"TessaroAcad.arx";
  if (session.client.empty()) session.client = programs / L"TessaroClient.dll";
  if (session.workFolder.empty())
    session.workFolder = std::filesystem::temp_directory_path() / L"acad";
  if (session.drawings.empty()) session.drawings = sampleDrawings(programs);
  if (!line.script.empty()) line.script = wb::windowsPath(line.script);
}

std::string readScript(const std::wstring& file) {
  std::ifstream stream(std::filesystem::path(file), std::ios::binary);
  if (!stream) throw UsageError("the script can't be read: " + wb::toUtf8(file));
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

int run(CommandLine line) {
  fillDefaults(line);
  std::optional<std::string> script;
  if (!line.script.empty()) script = readScript(line.script);
  wb::Session session(line.session);
  bool ok = script ? session.run(*script) : session.load();
  if (ok && line.desk) {
    wb::Desk desk(session.context());
    session.interact(desk);
  } else if (ok && line.session.interactive) {
    session.interact();
  }
  // Errors of a person at the prompt don't count; what leaked does.
  const size_t problems = wb::Transcript::instance().problems();
  session.end();
  const bool leaked = wb::Transcript::instance().anySince(
      0, [](const wb::Event& event) { return event.kind == wb::Event::leak; });
  if (leaked || wb::Transcript::instance().problems() != problems) ok = false;
  return ok ? exitOk : exitFailed;
}

}  // namespace

int main() {
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  try {
    return run(parse(count, arguments));
  } catch (const UsageError& error) {
    std::fprintf(stderr, "acad: %s\n\n%s", error.what(), usage);
    return exitUsage;
  } catch (const wb::ScriptError& error) {
    std::fprintf(stderr, "acad: %s\n", wb::toUtf8(error.why).c_str());
    return exitUsage;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "acad: %s\n", error.what());
    return exitFailed;
  }
}
