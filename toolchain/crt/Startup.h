#pragma once

#include <corecrt_startup.h>

namespace crt {

/// Runs the initialisers of the image, C's ahead of C++'s.
/// @return false if one of C's failed
bool initialize();

/// Runs what was registered with `atexit`, the destructors of static objects among it.
void runAtExit();

/// Starts a program: initialises it, runs `main` and ends the process.
/// @param main called with nothing; returns the exit code
[[noreturn]] void runProgram(int (*main)());

}  // namespace crt
