// The heap of the run-time library, which Wine has and doesn't declare.
#pragma once
#include_next <malloc.h>

#ifdef __cplusplus
extern "C" {
#endif
intptr_t __cdecl _get_heap_handle(void);
#ifdef __cplusplus
}
#endif
