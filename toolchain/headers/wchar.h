// Wide characters in a given locale and what else Wine has and doesn't declare.
#pragma once
#include_next <wchar.h>

#ifdef __cplusplus
extern "C" {
#endif
errno_t __cdecl wcrtomb_s(size_t*, char*, size_t, wchar_t, mbstate_t*);
int __cdecl _iswalpha_l(wint_t, _locale_t);
int __cdecl _iswblank_l(wint_t, _locale_t);
int __cdecl _iswcntrl_l(wint_t, _locale_t);
int __cdecl _iswdigit_l(wint_t, _locale_t);
int __cdecl _iswlower_l(wint_t, _locale_t);
int __cdecl _iswprint_l(wint_t, _locale_t);
int __cdecl _iswpunct_l(wint_t, _locale_t);
int __cdecl _iswspace_l(wint_t, _locale_t);
int __cdecl _iswupper_l(wint_t, _locale_t);
int __cdecl _iswxdigit_l(wint_t, _locale_t);
#ifdef __cplusplus
}
// long double is double.
extern "C" inline long double wcstold(const wchar_t* text, wchar_t** end) {
  return wcstod(text, end);
}
#endif
