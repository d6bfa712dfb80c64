#pragma once

#include "foundation/CString.h"

namespace tessaro {

/// The meter in the host's status bar, from the first step to the end of the scope. It shows the
/// progress of the fetching of many files, which may take minutes.
class ProgressMeter {
 public:
  /// @param steps the number of steps
  explicit ProgressMeter(int steps) : steps(steps) {}
  ProgressMeter(const ProgressMeter&) = delete;
  ProgressMeter& operator=(const ProgressMeter&) = delete;
  ~ProgressMeter();

  /// Shows the next step.
  /// @param label describes the step
  void next(const CString& label);

 private:
  const int steps;
  int done = 0;
  bool shown = false;
};

}  // namespace tessaro
