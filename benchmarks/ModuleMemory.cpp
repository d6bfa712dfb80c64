#include "ModuleMemory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>

#include "watch/ImportWatch.h"

namespace bench {

namespace {

// What was allocated before the watching began and is freed later makes `held` negative.
std::ptrdiff_t held = 0, peak = 0;

void* countAllocated(void* block) {
  if (block) held += static_cast<std::ptrdiff_t>(_msize(block));
  peak = std::max(peak, held);
  return block;
}

void countFreed(void* block) {
  if (block) held -= static_cast<std::ptrdiff_t>(_msize(block));
}

void* observedMalloc(size_t size) { return countAllocated(std::malloc(size)); }
void* observedCalloc(size_t count, size_t size) { return countAllocated(std::calloc(count, size)); }

void* observedRealloc(void* block, size_t size) {
  countFreed(block);
  return countAllocated(std::realloc(block, size));
}

void observedFree(void* block) {
  countFreed(block);
  std::free(block);
}

}  // namespace

void watchMemoryOf(HMODULE module) {
  wb::observeImports(module, {{"malloc", reinterpret_cast<void*>(observedMalloc)},
                              {"calloc", reinterpret_cast<void*>(observedCalloc)},
                              {"realloc", reinterpret_cast<void*>(observedRealloc)},
                              {"free", reinterpret_cast<void*>(observedFree)}});
}

std::size_t peakSinceLastCall() {
  const std::size_t found = static_cast<std::size_t>(std::max<std::ptrdiff_t>(peak, 0));
  held = peak = 0;
  return found;
}

}  // namespace bench
