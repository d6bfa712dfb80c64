// The module beside the bare sequence of calls that its work can't do without.

#include <windows.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "core/Text.h"
#include "Measure.h"
#include "Rows.h"

namespace bench {

namespace {

constexpr int repetitions = 9;
constexpr int queriesInARound = 20;
constexpr double mostTimes = 1.5;

struct Measured {
  double own;
  std::vector<std::wstring> clientCalls;
};

/// One measurement, with the calls of the client in it.
Measured measured(BenchSession& session, const std::function<void()>& work) {
  session.clearTranscript();
  const double own = spent(work).own;
  const Measured found{own, session.clientCalls().lines};
  session.clearTranscript();
  return found;
}

/// Like is compared with like only if both ask the client for the same.
void needSameCalls(const Measured& module, const Measured& bare) {
  if (module.clientCalls == bare.clientCalls) return;
  std::string text = "The bare sequence makes other calls of the client than the module:\n";
  for (const Measured* one : {&module, &bare}) {
    text += one == &module ? "the module\n" : "the bare sequence\n";
    for (const std::wstring& call : one->clientCalls) text += "  " + wb::toUtf8(call) + "\n";
  }
  throw std::runtime_error(text);
}

/// Measures the same work with either application, one right after the other.
/// @param times how often the work is done in a measurement
void compare(BenchSession& session, Row& row, int times, const std::function<Measured()>& measure) {
  for (int round = 0; round < repetitions; ++round) {
    session.load(Application::module);
    const Measured module = measure();
    session.load(Application::bare);
    const Measured bare = measure();
    needSameCalls(module, bare);
    row.add(module.own / times, bare.own / times);
  }
  session.load(Application::module);
  print(row);
}

}  // namespace

void statusQuery(BenchSession& session) {
  session.openSheet(0);
  const std::wstring path = (BenchSession::view() / L"Sheet0.dxf").wstring();
  Row row(
      "Status query for the status window / the bare calls for it, of the client, the registry and "
      "the window",
      "us", mostTimes);
  compare(session, row, queriesInARound, [&] {
    session.saved(path);
    return measured(session, [&] {
      for (int time = 0; time < queriesInARound; ++time) session.saved(path);
    });
  });
  session.closeAll();
}

void checkOut(BenchSession& session) {
  session.openSheet(0);
  session.closeAll();
  Row row(
      "Check-out up to the drawing's being open again with its status shown / the bare calls for "
      "it",
      "us", mostTimes);
  compare(session, row, 1, [&] {
    session.run("@open %WORK%\\View\\Sheet0.dxf\n");
    const Measured found = measured(session, [&] { session.command(L"_Tessaro_locksilent"); });
    session.settle();
    session.closeAll();
    session.run("@vault undo %WORK%\\View\\Sheet0.dxf\n");
    return found;
  });
}

void moduleLoad(BenchSession& session) {
  // In the genuine host other parts hold these libraries of Windows, so that an application that
  // uses them doesn't bring them into the process.
  for (const wchar_t* library : {L"comctl32.dll", L"shlwapi.dll"}) LoadLibraryW(library);
  Row row("Loading and unloading the module / an application that makes the same calls for it",
          "us", mostTimes);
  const auto loadAndUnload = [&](Application application) {
    session.unload();
    return measured(session, [&] {
      session.load(application);
      session.unload();
    });
  };
  for (int round = 0; round < repetitions; ++round) {
    const Measured module = loadAndUnload(Application::module);
    const Measured bare = loadAndUnload(Application::bare);
    needSameCalls(module, bare);
    row.add(module.own, bare.own);
  }
  session.load(Application::module);
  print(row);
}

}  // namespace bench
