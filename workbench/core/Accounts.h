#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace wb {

/// Names one thing that was handed out; later tickets are larger.
using Ticket = unsigned long long;

struct Outstanding {
  Ticket ticket;
  std::wstring kind;
  std::wstring label;
  bool kept = false;  ///< may outlive the command that got it
};

/// What was handed out in a session and has to be given back.
class Accounts {
 public:
  Accounts() = default;
  Accounts(const Accounts&) = delete;
  Accounts& operator=(const Accounts&) = delete;
  ~Accounts();

  /// The allocator frees a block.
  void memoryIsFreed(const void* block);

  /// From here on no memory is accounted for: the watching of COM's allocator slows down whoever
  /// allocates. To be called before the first memory is entered.
  void leaveMemoryOut() { memoryLeftOut = true; }
  bool memoryIsLeftOut() const { return memoryLeftOut; }

 private:
  friend Ticket trackResource(std::wstring kind, std::wstring label);
  friend void releaseResource(Ticket ticket);
  friend Ticket trackMemory(const void* block, std::wstring kind, std::wstring label);
  friend void keepBeyondCommand(Ticket ticket);
  friend std::vector<Outstanding> outstanding(Ticket since);
  friend Ticket nextTicket();
  static Ticket firstTicket();
  bool watchesFrees();

  std::recursive_mutex mutex;
  std::map<Ticket, Outstanding> entries;
  std::unordered_map<const void*, Ticket> memory;
  Ticket following = firstTicket();
  bool memoryLeftOut = false;
  std::optional<bool> watches;  ///< whether the allocator's frees are seen; empty until it is tried
};

// The accounts of the current session, on any thread; outside a session nothing is entered and a
// ticket is 0.

/// Enters something that has to be given back: a reference, an open object, a handle.
/// @param label what it is, in words that are the same in two runs
Ticket trackResource(std::wstring kind, std::wstring label);
/// A ticket of another session is of no effect.
void releaseResource(Ticket ticket);

/// Enters memory that the receiver has to free: a BSTR, an item id list, an array. It counts as
/// given back when COM's task allocator frees it.
/// @return 0 if memory isn't accounted for
Ticket trackMemory(const void* block, std::wstring kind, std::wstring label);

/// Marks what may outlive the command that got it, such as the module's text service; it has to be
/// back at the end of the run.
void keepBeyondCommand(Ticket ticket);

/// What hasn't been given back, of the tickets from `since` on, oldest first.
std::vector<Outstanding> outstanding(Ticket since = 0);

/// The ticket that the next thing gets.
Ticket nextTicket();

/// The accounts of one kind of thing that is opened and closed by a handle.
template <typename Handle>
class HandleLedger {
 public:
  explicit HandleLedger(const wchar_t* kind) : kind(kind) {}

  void opened(const Handle& handle, std::wstring label, bool outlivesCommand = false) {
    closed(handle);
    const Ticket ticket = trackResource(kind, std::move(label));
    if (outlivesCommand) keepBeyondCommand(ticket);
    tickets[handle] = ticket;
  }

  /// False if the handle isn't one of the ledger's.
  bool closed(const Handle& handle) {
    const auto at = tickets.find(handle);
    if (at == tickets.end()) return false;
    releaseResource(at->second);
    tickets.erase(at);
    return true;
  }

  template <typename Predicate>
  void closedWhere(Predicate matches) {
    for (auto at = tickets.begin(); at != tickets.end();) {
      const Handle handle = (at++)->first;
      if (matches(handle)) closed(handle);
    }
  }

  /// Forgets the handles; what is open stays on the accounts.
  void forget() { tickets.clear(); }

 private:
  const wchar_t* kind;
  std::map<Handle, Ticket> tickets;
};

}  // namespace wb
