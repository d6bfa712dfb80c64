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
    const HANDLE file = CreateFileW(Workshop::xref(number).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    FILETIME written;
    const bool read = file != INVALID_HANDLE_VALUE && GetFileTime(file, nullptr, nullptr, &written);
    CloseHandle(file);
    if (!read) throw std::runtime_error("a file's time can't be read");
  }
}

/// A check that finds everything current.
double ownTimeOfCheck(Workshop& workshop) {
  const double own = spent([&] { workshop.click(IDC_XREFS_LATEST); }).own;
  workshop.forget();
  return own;
}

}  // namespace

void checkOfXrefs(Workshop& workshop) {
  workshop.openSheet(200);
  workshop.openSheet(2000);
  Row check("Check of 2,000 xrefs, all current / opening the files and reading their times", "us",
            1.25);
  for (int round = 0; round < repetitions; ++round) {
    const double own = ownTimeOfCheck(workshop);
    check.add(own, spent([] { readTimes(2000); }).all);
  }
  print(check);
  Row growth("The same for 2,000 / ten times that for 200", "us");
  for (int round = 0; round < repetitions; ++round) {
    workshop.run("@activate %WORK%\\View\\Sheet200.dxf\n");
    const double fewer = ownTimeOfCheck(workshop);
    workshop.run("@activate %WORK%\\View\\Sheet2000.dxf\n");
    growth.add(ownTimeOfCheck(workshop), 10 * fewer);
  }
  print(growth);
  workshop.closeAll();
}

namespace {

/// What the module asks the client for one file when it is asked one by one.
void queryStatus(Workshop& workshop, int number) {
  workshop.saved(Workshop::xref(number).wstring());
}

struct Cost {
  double own;
  size_t calls;

  /// Milliseconds that it takes with a client that answers each call after one. The millisecond is
  /// added and not waited for.
  double withSlowClient() const { return own / 1000 + static_cast<double>(calls); }
};

Cost costOf(Workshop& workshop, const std::function<void()>& work) {
  workshop.forget();
  const double own = spent(work).own;
  const Cost cost{own, workshop.clientCalls()};
  workshop.forget();
  return cost;
}

}  // namespace

void batchAgainstFileByFile(Workshop& workshop) {
  std::vector<Row> times, memory;
  for (const int count : {10, 100, 1000, 10000}) {
    workshop.openSheet(count);
    workshop.click(IDC_XREFS_LATEST);
    peakSinceLastQuestion();
    const Cost batch = costOf(workshop, [&] { workshop.click(IDC_XREFS_LATEST); });
    const double peak = static_cast<double>(peakSinceLastQuestion());
    const Cost single = costOf(workshop, [&] {
      for (int number = 0; number < count; ++number) queryStatus(workshop, number);
    });
    const std::string xrefs = std::to_string(count) + " xrefs";
    times.emplace_back("Check of " + xrefs + " / a status query for each, 1 ms a call", "ms");
    times.back().add(batch.withSlowClient(), single.withSlowClient());
    memory.emplace_back("The module's memory at its highest for " + xrefs + " / 1 KiB for each",
                        "KiB");
    memory.back().add(peak / 1024, count);
    workshop.closeAll();
  }
  for (const Row& row : times) print(row);
  for (const Row& row : memory) print(row);
}

}  // namespace bench
