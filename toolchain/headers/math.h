// Wine's classification macros give way to functions, which the C++ library asks for by name.
#pragma once
#include_next <math.h>

#ifdef __cplusplus
#undef fpclassify
#undef isfinite
#undef isinf
#undef isnan
#undef isnormal
#undef signbit

extern "C++" {
#define TOOLCHAIN_CLASSIFY(Type)                                                           \
  inline int fpclassify(Type x) noexcept {                                                 \
    return __builtin_fpclassify(FP_NAN, FP_INFINITE, FP_NORMAL, FP_SUBNORMAL, FP_ZERO, x); \
  }                                                                                        \
  inline bool isfinite(Type x) noexcept { return __builtin_isfinite(x); }                  \
  inline bool isinf(Type x) noexcept { return __builtin_isinf(x); }                        \
  inline bool isnan(Type x) noexcept { return __builtin_isnan(x); }                        \
  inline bool isnormal(Type x) noexcept { return __builtin_isnormal(x); }                  \
  inline bool signbit(Type x) noexcept { return __builtin_signbit(x); }
TOOLCHAIN_CLASSIFY(float)
TOOLCHAIN_CLASSIFY(double)
TOOLCHAIN_CLASSIFY(long double)
#undef TOOLCHAIN_CLASSIFY
}

extern "C" inline long double copysignl(long double x, long double sign) {
  return __builtin_copysignl(x, sign);
}
#endif
