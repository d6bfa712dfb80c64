// Wine's old names are macros, which would rename members of classes in some files and not in
// others.
#pragma once
#include_next <io.h>

#undef open
#undef sopen
