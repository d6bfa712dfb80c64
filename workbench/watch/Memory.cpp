#include <windows.h>

#include <malloc.h>
#include <objbase.h>
#include <oleauto.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <map>

#include "core/SessionState.h"
#include "core/Transcript.h"
#include "watch/ImportWatch.h"
#include "watch/WatchedCalls.h"

namespace wb {
namespace {

/// The blocks of the runtime's heap that watched modules hold: where each begins and its bytes.
struct WatchedMemory {
  std::map<const char*, size_t> blocks;
};

std::map<const char*, size_t>& blocks() { return sessionPart<WatchedMemory>().blocks; }

void* entered(void* block, size_t size) {
  if (block) blocks()[static_cast<const char*>(block)] = size;
  return block;
}

void left(void* block) { blocks().erase(static_cast<const char*>(block)); }

/// Whether the runtime's heap holds the block and nothing was written beyond it, as far as the
/// heap's flags let it say so. A block that isn't sound is told and left alone.
bool isSound(void* block) {
  static const bool watched = heapsAreWatched();
  const auto heap = reinterpret_cast<HANDLE>(_get_heap_handle());
  // Freed blocks that the heap keeps aside for a while pass as valid, but have no size.
  if (!watched || !block ||
      (HeapValidate(heap, 0, block) && HeapSize(heap, 0, block) != SIZE_MAX)) {
    return true;
  }
  tell(Event::error, L"memory is given back that is damaged or was given back before");
  return false;
}

void* seenMalloc(size_t size) {
  if (windowsFails(L"module.malloc")) return nullptr;
  return entered(std::malloc(size), size);
}

void* seenCalloc(size_t count, size_t size) {
  if (windowsFails(L"module.calloc")) return nullptr;
  return entered(std::calloc(count, size), count * size);
}

void* seenRealloc(void* block, size_t size) {
  if (!isSound(block) || windowsFails(L"module.realloc")) return nullptr;
  const auto old = blocks().extract(static_cast<const char*>(block));
  void* const moved = std::realloc(block, size);
  // What can't be resized stays where it is.
  if (!moved && size > 0 && old) entered(block, old.mapped());
  return entered(moved, size);
}

void seenFree(void* block) {
  if (!isSound(block)) return;
  left(block);
  std::free(block);
}

/// COM's memory may go back in other hands than those that asked for it.
void enteredForCom(const void* block, const wchar_t* kind, size_t size) {
  const Ticket ticket = handOutMemory(block, kind, std::to_wstring(size) + L" bytes of a module");
  if (ticket) keepBeyondCommand(ticket);
}

BSTR enteredText(BSTR text) {
  enteredForCom(text, L"string", SysStringByteLen(text));
  return text;
}

BSTR WINAPI seenSysAllocString(const OLECHAR* text) {
  if (windowsFails(L"module.SysAllocString")) return nullptr;
  return enteredText(SysAllocString(text));
}

BSTR WINAPI seenSysAllocStringLen(const OLECHAR* text, UINT length) {
  if (windowsFails(L"module.SysAllocStringLen")) return nullptr;
  return enteredText(SysAllocStringLen(text, length));
}

BSTR WINAPI seenSysAllocStringByteLen(LPCSTR text, UINT length) {
  if (windowsFails(L"module.SysAllocStringByteLen")) return nullptr;
  return enteredText(SysAllocStringByteLen(text, length));
}

LPVOID WINAPI seenCoTaskMemAlloc(SIZE_T size) {
  if (windowsFails(L"module.CoTaskMemAlloc")) return nullptr;
  void* const block = CoTaskMemAlloc(size);
  enteredForCom(block, L"memory", size);
  return block;
}

std::vector<WatchedCall> memoryCalls() {
  return {
      {"malloc", observerOf(seenMalloc, std::malloc)},
      {"calloc", observerOf(seenCalloc, std::calloc)},
      {"realloc", observerOf(seenRealloc, std::realloc)},
      {"free", observerOf(seenFree, std::free)},
      {"SysAllocString", observerOf(seenSysAllocString, SysAllocString)},
      {"SysAllocStringLen", observerOf(seenSysAllocStringLen, SysAllocStringLen)},
      {"SysAllocStringByteLen", observerOf(seenSysAllocStringByteLen, SysAllocStringByteLen)},
      {"CoTaskMemAlloc", observerOf(seenCoTaskMemAlloc, CoTaskMemAlloc)},
  };
}

}  // namespace

bool heapsAreWatched() {
  const HMODULE library = GetModuleHandleW(L"ntdll.dll");
  const auto globalFlags = reinterpret_cast<ULONG(WINAPI*)()>(
      reinterpret_cast<void*>(GetProcAddress(library, "RtlGetNtGlobalFlags")));
  return globalFlags && (globalFlags() & heapCheckFlags) == heapCheckFlags;
}

void watchMemory(HMODULE module) {
  if (!SessionState::get().accounts.memoryIsLeftOut()) patchImports(module, memoryCalls());
}

void tellMemoryLeft() {
  for (const auto& [block, size] : blocks()) {
    tell(Event::leak, L"memory " + std::to_wstring(size) + L" bytes");
  }
  blocks().clear();
}

}  // namespace wb
