// Initialisers and `atexit`. The compiler puts pointers to initialisers into sections whose names
// the linker sorts. Each image has a table of its own of what is to run at its end, so that a
// library's destructors run when it is unloaded.

#include "Startup.h"

#pragma section(".CRT$XIA", read)
#pragma section(".CRT$XIZ", read)
#pragma section(".CRT$XCA", read)
#pragma section(".CRT$XCZ", read)

extern "C" {
// <stdlib.h> would import `atexit`, which is made here.
[[noreturn]] __declspec(dllimport) void __cdecl exit(int code);

__declspec(allocate(".CRT$XIA")) extern const _PIFV firstOfC = nullptr;
__declspec(allocate(".CRT$XIZ")) extern const _PIFV endOfC = nullptr;
__declspec(allocate(".CRT$XCA")) extern const _PVFV firstOfCpp = nullptr;
__declspec(allocate(".CRT$XCZ")) extern const _PVFV endOfCpp = nullptr;

/// The linker asks for it when a file uses floating point.
extern const int _fltused = 0x9875;
}

namespace {
_onexit_table_t endings;
}

extern "C" int __cdecl atexit(void(__cdecl* function)()) {
  return _register_onexit_function(&endings, reinterpret_cast<_onexit_t>(function));
}

bool crt::initialize() {
  _initialize_onexit_table(&endings);
  for (const _PIFV* at = &firstOfC; at < &endOfC; ++at) {
    if (*at && (*at)() != 0) return false;
  }
  for (const _PVFV* at = &firstOfCpp; at < &endOfCpp; ++at) {
    if (*at) (*at)();
  }
  return true;
}

void crt::runAtExit() { _execute_onexit_table(&endings); }

void crt::runProgram(int (*main)()) {
  _set_app_type(_crt_console_app);
  _crt_atexit(&crt::runAtExit);
  exit(initialize() ? main() : 255);
}
