#pragma once

#include <windows.h>

#include <comdef.h>

#include <new>

#include "foundation/FailureBox.h"

namespace tessaro {

// The borders of the module are the functions that the host or Windows calls. No exception may
// leave them, except a _com_error from a command or from the edit guard, which the host catches.

/// Classifies the exception that is being handled. To be called in a catch block.
/// @return the code of a _com_error, E_OUTOFMEMORY for a lack of memory, E_UNEXPECTED for others
HRESULT currentFailure() noexcept;

/// Runs `work`. An exception ends it and is reported in a box.
template <class Work>
void atBorder(Work work) noexcept {
  try {
    work();
  } catch (...) {
    plainFailureBox(nullptr, currentFailure());
  }
}

/// Runs `work`. An exception ends it and is reported in a box.
/// @return the result of `work`, `fallback` after an exception
template <class Result, class Work>
Result atBorder(Result fallback, Work work) noexcept {
  try {
    return work();
  } catch (...) {
    plainFailureBox(nullptr, currentFailure());
    return fallback;
  }
}

/// Runs `work` and translates its exceptions for the host.
/// @throws _com_error and nothing else
template <class Work>
void asComErrors(Work work) {
  try {
    work();
  } catch (const std::bad_alloc&) {
    // The module's own class for it is a _com_error too, but the host doesn't have that class.
    _com_issue_error(E_OUTOFMEMORY);
  } catch (const _com_error&) {
    throw;
  } catch (...) {
    _com_issue_error(E_UNEXPECTED);
  }
}

}  // namespace tessaro
