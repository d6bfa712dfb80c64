// Measures the module against what its work can't do without, and prints a table of ratios.
#include <cstdio>
#include <cstring>
#include <exception>

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

bool isWanted(const char* name, int count, char** words) {
  for (int index = 1; index < count; ++index) {
    if (std::strcmp(words[index], name) == 0) return true;
  }
  return count == 1;
}

}  // namespace

/// Words name the rows to measure; all without.
int main(int count, char** words) {
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
