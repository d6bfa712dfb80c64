#pragma once

namespace tessaro {

/// Gives memory back that the host got by its own operator new. The host was built with an older
/// compiler, whose run-time library has a heap of its own, so the module's operator delete would
/// give the memory to the wrong heap. The run-time libraries take their heaps from Windows, which
/// knows whose the block is; one that belongs to none of them is left alone.
/// @param memory null is nothing to give back
void freeHostMemory(void* memory) noexcept;

}  // namespace tessaro
