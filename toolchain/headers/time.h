// C11's point in time, and functions that Wine has and doesn't declare.
#pragma once
#include_next <time.h>

struct timespec {
  time_t tv_sec;
  long tv_nsec;
};

#ifdef __cplusplus
extern "C" {
#endif
size_t __cdecl _strftime_l(char*, size_t, const char*, const struct tm*, _locale_t);
#ifdef __cplusplus
}
inline errno_t localtime_s(struct tm* local, const time_t* time) {
  return _localtime64_s(local, time);
}
#endif
