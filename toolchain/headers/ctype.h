// Classification in a given locale, which Wine has and doesn't declare.
#pragma once
#include_next <ctype.h>

#ifdef __cplusplus
extern "C" {
#endif
const unsigned short* __cdecl __pctype_func(void);
int __cdecl _isdigit_l(int, _locale_t);
int __cdecl _islower_l(int, _locale_t);
int __cdecl _isupper_l(int, _locale_t);
int __cdecl _isxdigit_l(int, _locale_t);
#ifdef __cplusplus
}
#endif
