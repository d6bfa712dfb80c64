// The image's directory of thread-local data, which Windows reads when it loads the image. Objects
// with a constructor aren't provided for: a use of one ends in an unresolved name at the link.

#include <windows.h>

#pragma section(".tls", read, write)
#pragma section(".tls$ZZZ", read, write)
#pragma section(".CRT$XLA", read)
#pragma section(".CRT$XLZ", read)
#pragma section(".rdata$T", read)

extern "C" {
/// Windows writes the image's place in each thread's table here.
ULONG _tls_index = 0;

__declspec(allocate(".tls")) char _tls_start = 0;
__declspec(allocate(".tls$ZZZ")) char _tls_end = 0;
__declspec(allocate(".CRT$XLA")) extern const PIMAGE_TLS_CALLBACK _tls_callbacks = nullptr;
__declspec(allocate(".CRT$XLZ")) extern const PIMAGE_TLS_CALLBACK _tls_callbacks_end = nullptr;

__declspec(allocate(".rdata$T")) extern const IMAGE_TLS_DIRECTORY64 _tls_used = {
    reinterpret_cast<ULONGLONG>(&_tls_start),
    reinterpret_cast<ULONGLONG>(&_tls_end),
    reinterpret_cast<ULONGLONG>(&_tls_index),
    reinterpret_cast<ULONGLONG>(&_tls_callbacks + 1),
    0,
    0};
}
