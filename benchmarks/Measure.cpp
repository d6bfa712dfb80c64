#include "Measure.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>

#include "core/SessionState.h"

namespace bench {

namespace {

bool kept = true;

double counterPerMicrosecond() {
  LARGE_INTEGER frequency;
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(frequency.QuadPart) / 1e6;
}

double now() {
  static const double scale = counterPerMicrosecond();
  LARGE_INTEGER counter;
  QueryPerformanceCounter(&counter);
  return static_cast<double>(counter.QuadPart) / scale;
}

/// Ticks of the processor's time stamp in a microsecond.
double ticksPerMicrosecond() {
  const double begun = now();
  const unsigned long long ticks = __rdtsc();
  Sleep(100);
  return static_cast<double>(__rdtsc() - ticks) / (now() - begun);
}

struct Ticks {
  double all, inside, entries;
};

Ticks ticksOf(const std::function<void()>& work) {
  wb::StandInTime& standIns = wb::SessionState::get().standInTime;
  standIns.count(true);
  const unsigned long long begun = __rdtsc();
  work();
  const unsigned long long all = __rdtsc() - begun;
  const Ticks found = {static_cast<double>(all), static_cast<double>(standIns.ticks()),
                       static_cast<double>(standIns.entries())};
  standIns.count(false);
  return found;
}

/// What the counting itself adds to the module's time at each entry of a stand-in.
double ticksForAnEntry() {
  std::vector<double> costs;
  for (int round = 0; round < 9; ++round) {
    const Ticks found = ticksOf([] {
      for (int entry = 0; entry < 10000; ++entry) const wb::InStandIn inside;
    });
    costs.push_back((found.all - found.inside) / found.entries);
  }
  return median(costs);
}

std::string number(double value) {
  char text[32];
  std::snprintf(text, sizeof(text), value < 10 ? "%.2f" : "%.0f", value);
  return text;
}

}  // namespace

Spent spent(const std::function<void()>& work) {
  static const double scale = ticksPerMicrosecond();
  // The processor's speed changes from one second to the next.
  const double before = ticksForAnEntry();
  const Ticks found = ticksOf(work);
  const double entry = (before + ticksForAnEntry()) / 2;
  const double own = found.all - found.inside - entry * found.entries;
  return {found.all / scale, own / scale};
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

Row::Row(std::string name, std::string unit, std::optional<double> limit)
    : name(std::move(name)), unit(std::move(unit)), limit(limit) {}

void Row::add(double one, double other) {
  measured.push_back(one);
  compared.push_back(other);
  ratios.push_back(one / other);
}

double Row::medianRatio() const { return median(ratios); }

bool Row::keepsLimit() const { return !limit || medianRatio() <= *limit; }

std::string Row::line() const {
  const auto [low, high] = std::minmax_element(ratios.begin(), ratios.end());
  std::string spread = ratios.size() > 1 ? number(*low) + " to " + number(*high) : "";
  return "| " + name + " | " + number(median(measured)) + " " + unit + " | " +
         number(median(compared)) + " " + unit + " | **" + number(medianRatio()) + "** | " +
         spread + " | " + (limit ? number(*limit) + (keepsLimit() ? "" : " MISSED") : "") + " |";
}

void printHead() {
  std::puts("| What | measured | compared with | ratio | spread | at most |");
  std::puts("|---|---|---|---|---|---|");
}

void print(const Row& row) {
  kept = kept && row.keepsLimit();
  std::puts(row.line().c_str());
  std::fflush(stdout);
}

bool allLimitsKept() { return kept; }

}  // namespace bench
