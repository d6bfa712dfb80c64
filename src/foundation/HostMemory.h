#pragma once

namespace tessaro {

/// Frees memory that the host allocated with its own operator new. The host was built with an older
/// compiler, whose run-time library has its own heap, so the module's operator delete would free to
/// the wrong one. The heap of the block is found among the process's heaps (HeapValidate); a block
/// of none of them isn't freed.
/// @param memory may be null
void freeHostMemory(void* memory) noexcept;

}  // namespace tessaro
