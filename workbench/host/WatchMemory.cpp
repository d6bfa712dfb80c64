#include <windows.h>

#include <malloc.h>

#include <cstdint>
#include <cstdlib>

#include "core/Transcript.h"
#include "host/ImportWatch.h"
#include "host/WatchedCalls.h"

namespace wb {
namespace {

/// Whether the runtime's heap holds the block and nothing was written beyond it, as far as the
/// heap's flags let it say so. A block that isn't sound is told and left alone.
bool isSound(void* block) {
  const auto heap = reinterpret_cast<HANDLE>(_get_heap_handle());
  // Freed blocks that the heap keeps aside for a while pass as valid, but have no size.
  if (!block || (HeapValidate(heap, 0, block) && HeapSize(heap, 0, block) != SIZE_MAX)) return true;
  tell(L"error", L"memory is given back that is damaged or was given back before");
  return false;
}

void seenFree(void* block) {
  if (isSound(block)) std::free(block);
}

void* seenRealloc(void* block, size_t size) {
  return isSound(block) ? std::realloc(block, size) : nullptr;
}

}  // namespace

bool heapsAreWatched() {
  const HMODULE library = GetModuleHandleW(L"ntdll.dll");
  const auto globalFlags = reinterpret_cast<ULONG(WINAPI*)()>(
      reinterpret_cast<void*>(GetProcAddress(library, "RtlGetNtGlobalFlags")));
  return globalFlags && (globalFlags() & heapCheckFlags) == heapCheckFlags;
}

std::vector<WatchedCall> memoryCalls() {
  if (!heapsAreWatched()) return {};
  return {
      {"free", observerOf(seenFree, std::free)},
      {"realloc", observerOf(seenRealloc, std::realloc)},
  };
}

}  // namespace wb
