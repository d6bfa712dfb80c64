// The C++ library's locales use MB_CUR_MAX having included nothing but this.
#pragma once
#include_next <locale.h>

#include <stdlib.h>
