#pragma once

#include "foundation/CString.h"

namespace tessaro {

/// Tells the user what the fetching of many files is at, which may take minutes without a window of
/// its own: the meter in the host's status bar, for as long as the holder lives; it appears with
/// the first step.
class ProgressMeter {
 public:
  /// @param steps number of steps until all is done.
  explicit ProgressMeter(int steps) : steps(steps) {}
  ProgressMeter(const ProgressMeter&) = delete;
  ProgressMeter& operator=(const ProgressMeter&) = delete;
  ~ProgressMeter();

  /// Shows that the next step is in hand.
  /// @param label what is being done.
  void next(const CString& label);

 private:
  const int steps;
  int done = 0;
  bool shown = false;
};

}  // namespace tessaro
