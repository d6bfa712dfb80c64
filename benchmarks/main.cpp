// Measures the module against what its work can't do without, and the workbench's own speed, and
// prints a table of ratios.
#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "Measure.h"
#include "Rows.h"
#include "scripting/Programs.h"

namespace {

constexpr char usage[] =
    "bench --drawings FOLDER [ROW...]\n"
    "\n"
    "Measures the rows that are named, or all of them.\n";

/// A row with a session of its own, or one of those that share a session.
struct Row {
  const wchar_t* name;
  void (*measureAlone)(const std::filesystem::path& drawings);
  void (*measure)(bench::BenchSession&) = nullptr;
  bool wanted = false;
};

/// Only one session lives at a time, so those with a session of their own come first.
std::vector<Row> allRows() {
  return {{L"sweep", bench::sweepSpeed},
          {L"sessions", bench::sessionsSpeed},
          {L"check", nullptr, bench::checkOfXrefs},
          {L"activation", nullptr, bench::activation},
          {L"guard", nullptr, bench::editGuard},
          {L"status", nullptr, bench::statusQuery},
          {L"checkout", nullptr, bench::checkOut},
          {L"titleblock", nullptr, bench::titleBlock},
          {L"load", nullptr, bench::moduleLoad},
          {L"showing", nullptr, bench::showing},
          {L"batch", nullptr, bench::batchAgainstFileByFile}};
}

int measure(const std::vector<Row>& rows, const std::wstring& drawings) {
  if (drawings.empty()) throw wb::UsageError("--drawings is needed");
  const bool all =
      std::none_of(rows.begin(), rows.end(), [](const Row& row) { return row.wanted; });
  bench::printHead();
  std::optional<bench::BenchSession> session;
  for (const Row& row : rows) {
    if (!all && !row.wanted) continue;
    if (row.measureAlone) {
      row.measureAlone(drawings);
    } else {
      if (!session) session.emplace();
      row.measure(*session);
    }
  }
  return bench::allLimitsKept() ? 0 : 1;
}

}  // namespace

int main() {
  _setmode(_fileno(stdout), _O_BINARY);
  try {
    std::wstring drawings;
    std::vector<Row> rows = allRows();
    std::vector<wb::ProgramOption> options = {{L"--drawings", &drawings}};
    for (Row& row : rows) options.push_back({row.name, &row.wanted});
    return wb::runProgram("bench", usage, options, [&] { return measure(rows, drawings); });
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench: %s\n", error.what());
    return 1;
  }
}
