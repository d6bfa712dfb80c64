// Measures the module against what its work can't do without, and prints a table of ratios.
#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iterator>

#include "Measure.h"
#include "Rows.h"

namespace {

constexpr struct {
  const char* name;
  void (*measure)(bench::Workshop&);
} rows[] = {
    {"check", bench::checkOfXrefs}, {"activation", bench::activation},
    {"guard", bench::editGuard},    {"status", bench::statusQuery},
    {"checkout", bench::checkOut},  {"titleblock", bench::titleBlock},
    {"load", bench::moduleLoad},    {"batch", bench::batchAgainstFileByFile},
};

bool isRow(const char* word) {
  return std::any_of(std::begin(rows), std::end(rows),
                     [&](const auto& row) { return std::strcmp(row.name, word) == 0; });
}

bool isWanted(const char* name, int count, char** words) {
  return count == 1 || std::any_of(words + 1, words + count,
                                   [&](const char* word) { return std::strcmp(word, name) == 0; });
}

}  // namespace

/// Words name the rows to measure; all without.
int main(int count, char** words) {
  const char* const* unknown = std::find_if_not(words + 1, words + count, isRow);
  if (unknown != words + count) {
    std::fprintf(stderr, "there is no row %s\n", *unknown);
    return 2;
  }
  _setmode(_fileno(stdout), _O_BINARY);
  try {
    bench::Workshop workshop;
    bench::printHead();
    for (const auto& row : rows) {
      if (isWanted(row.name, count, words)) row.measure(workshop);
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  }
  return bench::allLimitsKept() ? 0 : 1;
}
