#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bench {

/// How long something took, in microseconds.
struct Spent {
  double all = 0;
  double own = 0;  ///< without the time inside the stand-ins
};

Spent spent(const std::function<void()>& work);

/// A row of the table: something set against something else, each pair measured side by side.
class Row {
 public:
  /// @param limit the ratio that it is to stay below, if there is one
  Row(std::string name, std::string unit, std::optional<double> limit = {});

  void add(double measured, double comparedWith);
  double medianRatio() const;
  /// The row as a line of a Markdown table.
  std::string line() const;
  bool keepsLimit() const;

 private:
  std::string name;
  std::string unit;
  std::optional<double> limit;
  std::vector<double> measured, compared, ratios;
};

double median(std::vector<double> values);

/// Begins the table, adds a row to it, tells whether every row kept its limit.
void printHead();
void print(const Row& row);
bool allLimitsKept();

}  // namespace bench
