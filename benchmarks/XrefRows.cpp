// The check of a drawing's xrefs.

#include <windows.h>

#include <stdexcept>
#include <string>

#include "Measure.h"
#include "ModuleMemory.h"
#include "Rows.h"
#include "ui/resource.h"

namespace bench {

namespace {

constexpr int repetitions = 9;

/// What no check of the files' times can do without.
void readTimes(int count) {
  for (int number = 0; number < count; ++number) {
    const HANDLE file = CreateFileW(BenchSession::xref(number).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    FILETIME written;
    const bool read = file != INVALID_HANDLE_VALUE && GetFileTime(file, nullptr, nullptr, &written);
    CloseHandle(file);
    if (!read) throw std::runtime_error("a file's time can't be read");
  }
}

/// A check that finds everything current.
double ownTimeOfCheck(BenchSession& session) {
  const double own = spent([&] { session.click(IDC_XREFS_LATEST); }).own;
  session.clearTranscript();
  return own;
}

}  // namespace

void checkOfXrefs(BenchSession& session) {
  session.openSheet(200);
  session.openSheet(2000);
  Row check("Check of 2,000 xrefs, all current / opening the files and reading their times", "us",
            1.25);
  for (int round = 0; round < repetitions; ++round) {
    const double own = ownTimeOfCheck(session);
    check.add(own, spent([] { readTimes(2000); }).all);
  }
  print(check);
  Row growth("The same for 2,000 / ten times that for 200", "us");
  for (int round = 0; round < repetitions; ++round) {
    session.run("@activate %WORK%\\View\\Sheet200.dxf\n");
    const double fewer = ownTimeOfCheck(session);
    session.run("@activate %WORK%\\View\\Sheet2000.dxf\n");
    growth.add(ownTimeOfCheck(session), 10 * fewer);
  }
  print(growth);
  session.closeAll();
}

namespace {

/// What the module asks the client for one file when it is asked one by one.
void queryStatus(BenchSession& session, int number) {
  session.saved(BenchSession::xref(number).wstring());
}

struct Cost {
  double own;
  ClientCalls calls;

  /// Milliseconds with a client for which each of `waits` takes one. The millisecond is added and
  /// not waited for.
  double withWaits(size_t waits) const { return own / 1000 + static_cast<double>(waits); }
};

Cost costOf(BenchSession& session, const std::function<void()>& work) {
  session.clearTranscript();
  const double own = spent(work).own;
  const Cost cost{own, session.clientCalls()};
  session.clearTranscript();
  return cost;
}

}  // namespace

void batchAgainstFileByFile(BenchSession& session) {
  session.loadWatched();
  std::vector<Row> slowCalls, slowServer, memory;
  for (const int count : {10, 100, 1000, 10000}) {
    session.openSheet(count);
    session.click(IDC_XREFS_LATEST);
    peakSinceLastCall();
    const Cost batch = costOf(session, [&] { session.click(IDC_XREFS_LATEST); });
    const double peak = static_cast<double>(peakSinceLastCall());
    const Cost single = costOf(session, [&] {
      for (int number = 0; number < count; ++number) queryStatus(session, number);
    });
    const std::string name =
        "Check of " + std::to_string(count) + " xrefs / a status query for each, ";
    slowCalls.emplace_back(name + "1 ms for each call of the client", "ms");
    slowCalls.back().add(batch.withWaits(batch.calls.ofVault),
                         single.withWaits(single.calls.ofVault));
    slowServer.emplace_back(
        name + "1 ms for each exchange with the server (login, look-up, query, fetch)", "ms", 1);
    slowServer.back().add(batch.withWaits(batch.calls.exchanges),
                          single.withWaits(single.calls.exchanges));
    memory.emplace_back("The module's memory at its highest for " + std::to_string(count) +
                            " xrefs / 1 KiB for each",
                        "KiB");
    memory.back().add(peak / 1024, count);
    session.closeAll();
  }
  for (const auto* rows : {&slowCalls, &slowServer, &memory}) {
    for (const Row& row : *rows) print(row);
  }
  session.load(Application::module);
}

}  // namespace bench
