#pragma once

#include <windows.h>

#include <comdef.h>

#include <new>

#include "foundation/FailureBox.h"

namespace tessaro {

// The borders of the module: where the host or Windows calls into it. No exception may leave there,
// except where the host takes a _com_error from a command or from the edit guard.

/// In a catch block: the code of what is being handled. What isn't a _com_error and no lack of
/// memory is E_UNEXPECTED.
HRESULT currentFailure() noexcept;

/// Runs `work`, which gives nothing. A failure is told to the user and ends it.
template <class Work>
void atBorder(Work work) noexcept {
  try {
    work();
  } catch (...) {
    plainFailureBox(nullptr, currentFailure());
  }
}

/// Runs `work` and gives its result, `fallback` after a failure, which is told to the user.
template <class Result, class Work>
Result atBorder(Result fallback, Work work) noexcept {
  try {
    return work();
  } catch (...) {
    plainFailureBox(nullptr, currentFailure());
    return fallback;
  }
}

/// Runs `work`, which the caller lets fail, but with nothing else than a _com_error.
template <class Work>
void asComErrors(Work work) {
  try {
    work();
  } catch (const std::bad_alloc&) {
    // It may be a _com_error, too, but of a class that only this module knows.
    _com_issue_error(E_OUTOFMEMORY);
  } catch (const _com_error&) {
    throw;
  } catch (...) {
    _com_issue_error(E_UNEXPECTED);
  }
}

}  // namespace tessaro
