#pragma once

#include <windows.h>

#include <cstddef>

namespace bench {

/// From here on what the module allocates is counted, until its library is unloaded.
void watchMemoryOf(HMODULE module);

/// The highest number of bytes that the module has held at once since the last call, beyond
/// what it held then.
std::size_t peakSinceLastCall();

}  // namespace bench
