// Measures the module against what its work can't do without, and the workbench's own speed, and
// prints a table of ratios.
#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "core/Text.h"
#include "Measure.h"
#include "Rows.h"

namespace {

/// Rows with sessions of their own. Only one session lives at a time, so they come first.
constexpr struct {
  const char* name;
  void (*measure)(const std::filesystem::path& drawings);
} ownSessions[] = {{"sweep", bench::sweepSpeed}, {"sessions", bench::sessionsSpeed}};

constexpr struct {
  const char* name;
  void (*measure)(bench::BenchSession&);
} sharedSession[] = {
    {"check", bench::checkOfXrefs},
    {"activation", bench::activation},
    {"guard", bench::editGuard},
    {"status", bench::statusQuery},
    {"checkout", bench::checkOut},
    {"titleblock", bench::titleBlock},
    {"load", bench::moduleLoad},
    {"showing", bench::showing},
    {"batch", bench::batchAgainstFileByFile},
};

struct Options {
  std::filesystem::path drawings;
  std::vector<std::string> rows;  ///< all if there are none

  bool wants(const std::string& row) const {
    return rows.empty() || std::find(rows.begin(), rows.end(), row) != rows.end();
  }
};

bool isRow(const std::string& word) {
  const auto named = [&](const auto& row) { return word == row.name; };
  return std::any_of(std::begin(ownSessions), std::end(ownSessions), named) ||
         std::any_of(std::begin(sharedSession), std::end(sharedSession), named);
}

/// @return nothing, with the reason printed, for a wrong command line
std::optional<Options> parse(int count, char** words) {
  Options options;
  for (int at = 1; at < count; ++at) {
    const std::string word = words[at];
    if (word == "--drawings" && at + 1 < count) {
      options.drawings = wb::fromUtf8(words[++at]);
    } else if (isRow(word)) {
      options.rows.push_back(word);
    } else {
      std::fprintf(stderr, "there is no row %s\n", word.c_str());
      return std::nullopt;
    }
  }
  if (!options.drawings.empty()) return options;
  std::fputs("bench --drawings FOLDER [ROW...]\n", stderr);
  return std::nullopt;
}

void measure(const Options& options) {
  bench::printHead();
  for (const auto& row : ownSessions) {
    if (options.wants(row.name)) row.measure(options.drawings);
  }
  std::optional<bench::BenchSession> session;
  for (const auto& row : sharedSession) {
    if (!options.wants(row.name)) continue;
    if (!session) session.emplace();
    row.measure(*session);
  }
}

}  // namespace

/// Names of rows are those to measure; all without.
int main(int count, char** words) {
  _setmode(_fileno(stdout), _O_BINARY);
  const std::optional<Options> options = parse(count, words);
  if (!options) return 2;
  try {
    measure(*options);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  }
  return bench::allLimitsKept() ? 0 : 1;
}
