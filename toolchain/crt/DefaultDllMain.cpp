// For a library that has none of its own.

#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, void*) { return TRUE; }
