#include "core/Accounts.h"

#include <windows.h>

#include <objidl.h>

#include <utility>

#include "core/Program.h"
#include "core/SessionState.h"
#include "core/StandInTime.h"
#include "core/Transcript.h"

namespace wb {
namespace {

/// Sees what COM's task allocator frees (IMallocSpy), and reports it to the accounts of the current
/// session. Windows has one spy in a process, for good.
class FreeSpy final : public IMallocSpy {
 public:
  void reportTo(Accounts* accounts) {
    const std::lock_guard lock(mutex);
    receiver = accounts;
  }
  void forget(const Accounts* accounts) {
    const std::lock_guard lock(mutex);
    if (receiver == accounts) receiver = nullptr;
  }

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

 private:
  void memoryIsFreed(const void* block) {
    const std::lock_guard lock(mutex);
    if (receiver) receiver->memoryIsFreed(block);
  }

  std::recursive_mutex mutex;
  Accounts* receiver = nullptr;
};

FreeSpy& freeSpy() {
  // Never destroyed: Windows calls it while the process ends.
  static auto* const spy = new FreeSpy;
  return *spy;
}

/// Automation keeps freed strings in a cache of its own, where the allocator doesn't see them. This
/// switches it off, as the environment variable OANOCACHE does; oleaut32 declares it in no header.
bool switchStringCacheOff() {
  // Pinned: unloaded with the client and loaded again, it would have its cache back.
  HMODULE automation = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, L"oleaut32.dll", &automation);
  const auto switchOff = exportedFunction<void(WINAPI*)()>(automation, "SetOaNoCache");
  if (!switchOff) return GetEnvironmentVariableW(L"OANOCACHE", nullptr, 0) != 0;
  switchOff();
  return true;
}

bool registerFreeSpy() {
  if (FAILED(CoRegisterMallocSpy(&freeSpy())) || !switchStringCacheOff()) return false;
  // Wine makes its table of blocks with the first one allocated under the spy, and can't free an
  // older one before that.
  CoTaskMemFree(CoTaskMemAlloc(1));
  return true;
}

Accounts* currentAccounts() {
  SessionState* const session = SessionState::current();
  return session ? &session->accounts : nullptr;
}

}  // namespace

// Tickets of earlier sessions are smaller: the counter makes 10 million steps a second.
Ticket Accounts::firstTicket() {
  LARGE_INTEGER counter;
  QueryPerformanceCounter(&counter);
  return static_cast<Ticket>(counter.QuadPart);
}

Accounts::~Accounts() { freeSpy().forget(this); }

bool Accounts::watchesFrees() {
  if (memoryLeftOut) return false;
  static const bool registered = registerFreeSpy();
  if (!watches) {
    watches = registered;
    freeSpy().reportTo(this);
    if (!registered) {
      report(Event::error,
             L"freed memory can't be watched: the allocator's spy or the string cache refuses");
    }
  }
  return *watches;
}

void Accounts::memoryIsFreed(const void* block) {
  // A BSTR's block begins with its length, 8 bytes ahead of the text.
  constexpr size_t bstrHeader = 8;
  const InStandIn inside;
  const std::lock_guard lock(mutex);
  for (const size_t offset : {size_t{0}, bstrHeader}) {
    const auto found = memory.find(static_cast<const char*>(block) + offset);
    if (found == memory.end()) continue;
    entries.erase(found->second);
    memory.erase(found);
  }
}

Ticket trackResource(std::wstring kind, std::wstring label) {
  Accounts* const accounts = currentAccounts();
  if (!accounts) return 0;
  const std::lock_guard lock(accounts->mutex);
  const Ticket ticket = accounts->following++;
  accounts->entries[ticket] = {ticket, std::move(kind), std::move(label)};
  return ticket;
}

void releaseResource(Ticket ticket) {
  Accounts* const accounts = currentAccounts();
  if (!accounts) return;
  const std::lock_guard lock(accounts->mutex);
  const auto entry = accounts->entries.extract(ticket);
  if (entry) recordDetail(L"back", entry.mapped().kind + L" " + entry.mapped().label);
}

Ticket trackMemory(const void* block, std::wstring kind, std::wstring label) {
  Accounts* const accounts = currentAccounts();
  if (!accounts || !block || !accounts->watchesFrees()) return 0;
  const std::lock_guard lock(accounts->mutex);
  return accounts->memory[block] = trackResource(std::move(kind), std::move(label));
}

void keepBeyondCommand(Ticket ticket) {
  Accounts* const accounts = currentAccounts();
  if (!accounts) return;
  const std::lock_guard lock(accounts->mutex);
  const auto found = accounts->entries.find(ticket);
  if (found != accounts->entries.end()) found->second.kept = true;
}

std::vector<Outstanding> outstanding(Ticket since) {
  std::vector<Outstanding> result;
  Accounts* const accounts = currentAccounts();
  if (!accounts) return result;
  const std::lock_guard lock(accounts->mutex);
  const auto& entries = accounts->entries;
  for (auto entry = entries.lower_bound(since); entry != entries.end(); ++entry) {
    result.push_back(entry->second);
  }
  return result;
}

Ticket nextTicket() {
  Accounts* const accounts = currentAccounts();
  if (!accounts) return 0;
  const std::lock_guard lock(accounts->mutex);
  return accounts->following;
}

}  // namespace wb
