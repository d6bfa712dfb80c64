#include "core/Accounts.h"

#include <windows.h>

#include <objidl.h>

#include <map>
#include <mutex>
#include <unordered_map>

#include "core/StandInTime.h"
#include "core/Transcript.h"

namespace wb {

namespace {

struct Entry {
  std::wstring kind;
  std::wstring label;
  bool kept = false;
  bool isMemory = false;  ///< it may come back on any thread
};

// The allocator's spy is called on any thread.
std::recursive_mutex accountsMutex;
std::map<Ticket, Entry> entries;
std::unordered_map<const void*, Ticket> memory;
Ticket following = 1;

void memoryIsFreed(const void* block) {
  // A BSTR's block begins with its length, 8 bytes ahead of the text.
  constexpr size_t bstrHeader = 8;
  const InStandIn inside;
  const std::lock_guard lock(accountsMutex);
  for (const size_t offset : {size_t{0}, bstrHeader}) {
    const auto found = memory.find(static_cast<const char*>(block) + offset);
    if (found == memory.end()) continue;
    const Ticket ticket = found->second;
    memory.erase(found);
    giveBack(ticket);
  }
}

/// Sees what COM's task allocator frees (IMallocSpy), in this library for the process's life.
class FreeSpy : public IMallocSpy {
 public:
  STDMETHOD(QueryInterface)(REFIID iid, void** result) override {
    const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IMallocSpy);
    *result = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHOD_(ULONG, AddRef)() override { return 1; }
  STDMETHOD_(ULONG, Release)() override { return 1; }
  STDMETHOD_(SIZE_T, PreAlloc)(SIZE_T size) override { return size; }
  STDMETHOD_(void*, PostAlloc)(void* block) override { return block; }
  STDMETHOD_(void*, PreFree)(void* block, BOOL) override {
    memoryIsFreed(block);
    return block;
  }
  STDMETHOD_(void, PostFree)(BOOL) override {}
  STDMETHOD_(SIZE_T, PreRealloc)(void* block, SIZE_T size, void** newBlock, BOOL) override {
    // Whoever resizes a block takes it over under another address.
    memoryIsFreed(block);
    *newBlock = block;
    return size;
  }
  STDMETHOD_(void*, PostRealloc)(void* block, BOOL) override { return block; }
  STDMETHOD_(void*, PreGetSize)(void* block, BOOL) override { return block; }
  STDMETHOD_(SIZE_T, PostGetSize)(SIZE_T size, BOOL) override { return size; }
  STDMETHOD_(void*, PreDidAlloc)(void* block, BOOL) override { return block; }
  STDMETHOD_(int, PostDidAlloc)(void*, BOOL, int actual) override { return actual; }
  STDMETHOD_(void, PreHeapMinimize)() override {}
  STDMETHOD_(void, PostHeapMinimize)() override {}
};

/// Automation keeps freed strings in a cache of its own, where the allocator doesn't see them. This
/// switches it off, as the environment variable OANOCACHE does; oleaut32 declares it in no header.
bool switchStringCacheOff() {
  // Pinned: unloaded with the client and loaded again, it would have its cache back.
  HMODULE automation = nullptr;
  if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, L"oleaut32.dll", &automation)) {
    return GetEnvironmentVariableW(L"OANOCACHE", nullptr, 0) != 0;
  }
  const FARPROC found = GetProcAddress(automation, "SetOaNoCache");
  if (!found) return GetEnvironmentVariableW(L"OANOCACHE", nullptr, 0) != 0;
  reinterpret_cast<void(WINAPI*)()>(reinterpret_cast<void*>(found))();
  return true;
}

bool startWatchingFrees() {
  static FreeSpy spy;
  if (SUCCEEDED(CoRegisterMallocSpy(&spy)) && switchStringCacheOff()) {
    // Wine makes its table of blocks with the first one allocated under the spy, and can't free an
    // older one before that.
    CoTaskMemFree(CoTaskMemAlloc(1));
    return true;
  }
  tell(Event::error,
       L"freed memory can't be watched: the allocator's spy or the string cache refuses");
  return false;
}

bool leftOut = false;

bool watchesFrees() {
  static const bool watches = !leftOut && startWatchingFrees();
  return watches;
}

}  // namespace

Ticket handOut(std::wstring kind, std::wstring label) {
  const std::lock_guard lock(accountsMutex);
  entries[following] = {std::move(kind), std::move(label)};
  return following++;
}

void giveBack(Ticket ticket) {
  const std::lock_guard lock(accountsMutex);
  const auto found = entries.find(ticket);
  if (found == entries.end()) return;
  if (!found->second.isMemory) note(L"back", found->second.kind + L" " + found->second.label);
  entries.erase(found);
}

Ticket handOutMemory(const void* block, std::wstring kind, std::wstring label) {
  if (!block || !watchesFrees()) return 0;
  const std::lock_guard lock(accountsMutex);
  const Ticket ticket = handOut(std::move(kind), std::move(label));
  entries[ticket].isMemory = true;
  return memory[block] = ticket;
}

void leaveMemoryOut() { leftOut = true; }

bool memoryIsLeftOut() { return leftOut; }

void keepBeyondCommand(Ticket ticket) {
  const std::lock_guard lock(accountsMutex);
  const auto found = entries.find(ticket);
  if (found != entries.end()) found->second.kept = true;
}

std::vector<Outstanding> outstanding(Ticket since) {
  const std::lock_guard lock(accountsMutex);
  std::vector<Outstanding> result;
  for (auto entry = entries.lower_bound(since); entry != entries.end(); ++entry) {
    result.push_back({entry->first, entry->second.kind, entry->second.label, entry->second.kept});
  }
  return result;
}

Ticket nextTicket() {
  const std::lock_guard lock(accountsMutex);
  return following;
}

}  // namespace wb
