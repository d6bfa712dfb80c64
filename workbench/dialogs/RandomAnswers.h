#pragma once

#include <windows.h>

#include <random>

#include "dialogs/Answers.h"

namespace wb {

/// A person who presses anything: answers out of a seeded stream, the same in each run.
class RandomAnswers {
 public:
  explicit RandomAnswers(unsigned seed) : stream(seed) {}

  /// An answer that the dialog can be given: a button of its own, before that perhaps
  /// a row, texts in its fields and ticks in its boxes.
  /// @param answeredBefore answers that this dialog got already; after a few it is closed.
  Answer next(HWND dialog, unsigned answeredBefore);

 private:
  unsigned below(size_t end);

  std::mt19937 stream;
};

}  // namespace wb
