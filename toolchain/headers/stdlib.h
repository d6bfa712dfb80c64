// Functions of the run-time library that Wine has and doesn't declare.
#pragma once
#include_next <stdlib.h>

#ifdef __cplusplus
extern "C" {
#endif
int __cdecl ___mb_cur_max_func(void);
int __cdecl ___mb_cur_max_l_func(_locale_t);
int* __cdecl __sys_nerr(void);
float __cdecl _strtof_l(const char*, char**, _locale_t);
double __cdecl _strtod_l(const char*, char**, _locale_t);
unsigned int __cdecl _set_abort_behavior(unsigned int, unsigned int);
#ifdef __cplusplus
}
#endif

#ifdef __cplusplus
// The C++ library leaves these to Microsoft's headers.
extern "C++" {
inline long abs(long x) noexcept { return __builtin_labs(x); }
inline long long abs(long long x) noexcept { return __builtin_llabs(x); }
}
#endif

#ifndef MB_CUR_MAX
#define MB_CUR_MAX ___mb_cur_max_func()
#endif
#ifndef _sys_nerr
#define _sys_nerr (*__sys_nerr())
#endif
#ifndef _WRITE_ABORT_MSG
#define _WRITE_ABORT_MSG 1
#define _CALL_REPORTFAULT 2
#endif
