#include <windows.h>

#include <malloc.h>
#include <objbase.h>
#include <oleauto.h>

#include <cstdint>
#include <cstdlib>
#include <map>

#include "core/Program.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "watch/WatchedCalls.h"

namespace wb {
namespace {

/// The blocks of the runtime's heap that watched modules hold: where each begins and its bytes.
struct WatchedMemory {
  std::map<const void*, size_t> blocks;
};

std::map<const void*, size_t>& blocks() { return sessionPart<WatchedMemory>().blocks; }

void enter(const void* block, size_t size) {
  if (block) blocks()[block] = size;
}

/// Whether the runtime's heap holds the block and nothing was written beyond it, as far as the
/// heap's flags show it. A block that isn't sound is reported and left alone.
bool isSound(void* block) {
  static const bool watched = heapsAreWatched();
  const auto heap = reinterpret_cast<HANDLE>(_get_heap_handle());
  // Freed blocks that the heap keeps aside for a while pass as valid, but have no size.
  if (!watched || !block ||
      (HeapValidate(heap, 0, block) && HeapSize(heap, 0, block) != SIZE_MAX)) {
    return true;
  }
  report(Event::error, L"memory is given back that is damaged or was given back before");
  return false;
}

void* seenRealloc(void* block, size_t size) {
  if (!isSound(block) || windowsFails(L"module.realloc")) return nullptr;
  const auto old = blocks().extract(block);
  void* const moved = std::realloc(block, size);
  // What can't be resized stays where it is.
  if (!moved && size > 0 && old) enter(block, old.mapped());
  enter(moved, size);
  return moved;
}

void seenFree(void* block) {
  if (!isSound(block)) return;
  blocks().erase(block);
  std::free(block);
}

/// COM's memory may be freed by others than those that asked for it.
void enterForCom(const void* block, const wchar_t* kind, size_t size) {
  const Ticket ticket = trackMemory(block, kind, std::to_wstring(size) + L" bytes of a module");
  if (ticket) keepBeyondCommand(ticket);
}

}  // namespace

std::vector<WatchedCall> memoryCalls() {
  const auto enterText = [](BSTR text, auto...) {
    enterForCom(text, L"string", SysStringByteLen(text));
  };
  return {
      failing("malloc", std::malloc, nullptr, [](void* block, size_t size) { enter(block, size); }),
      failing("calloc", std::calloc, nullptr,
              [](void* block, size_t count, size_t size) { enter(block, count * size); }),
      {"realloc", observerOf(seenRealloc, std::realloc)},
      {"free", observerOf(seenFree, std::free)},
      failing("SysAllocString", SysAllocString, nullptr, enterText),
      failing("SysAllocStringLen", SysAllocStringLen, nullptr, enterText),
      failing("SysAllocStringByteLen", SysAllocStringByteLen, nullptr, enterText),
      failing("CoTaskMemAlloc", CoTaskMemAlloc, nullptr,
              [](LPVOID block, SIZE_T size) { enterForCom(block, L"memory", size); }),
  };
}

bool heapsAreWatched() {
  const auto globalFlags =
      exportedFunction<ULONG(WINAPI*)()>(GetModuleHandleW(L"ntdll.dll"), "RtlGetNtGlobalFlags");
  return globalFlags && (globalFlags() & heapCheckFlags) == heapCheckFlags;
}

void reportMemoryLeft() {
  for (const auto& [block, size] : blocks()) {
    report(Event::leak, L"memory " + std::to_wstring(size) + L" bytes");
  }
  blocks().clear();
}

}  // namespace wb
