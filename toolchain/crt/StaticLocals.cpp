// Static objects in functions: each has a guard, 0 before its construction, -1 during it, and after
// it the count of constructions so far. A thread whose own count is as high needs no look at a
// lock.

#include <windows.h>

#include <climits>

namespace {
constexpr int untouched = 0;
constexpr int underConstruction = -1;

SRWLOCK lock = SRWLOCK_INIT;
CONDITION_VARIABLE constructed = CONDITION_VARIABLE_INIT;
int constructions = INT_MIN;
}  // namespace

extern "C" {
/// This thread's count.
thread_local int _Init_thread_epoch = INT_MIN;

/// Called ahead of a construction. The caller constructs if the guard is -1 afterwards.
void __cdecl _Init_thread_header(int* guard) {
  AcquireSRWLockExclusive(&lock);
  while (*guard == underConstruction) SleepConditionVariableSRW(&constructed, &lock, INFINITE, 0);
  if (*guard == untouched) {
    *guard = underConstruction;
  } else {
    _Init_thread_epoch = constructions;
  }
  ReleaseSRWLockExclusive(&lock);
}

/// Called after a construction.
void __cdecl _Init_thread_footer(int* guard) {
  AcquireSRWLockExclusive(&lock);
  *guard = ++constructions;
  _Init_thread_epoch = constructions;
  ReleaseSRWLockExclusive(&lock);
  WakeAllConditionVariable(&constructed);
}

/// Called when the construction has failed: the next caller tries again.
void __cdecl _Init_thread_abort(int* guard) {
  AcquireSRWLockExclusive(&lock);
  *guard = untouched;
  ReleaseSRWLockExclusive(&lock);
  WakeAllConditionVariable(&constructed);
}
}
