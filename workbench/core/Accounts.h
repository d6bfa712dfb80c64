#pragma once

#include <algorithm>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/Lists.h"

namespace wb {

/// The number of a resource on the accounts; later ones are larger.
using Ticket = unsigned long long;

struct Outstanding {
  Ticket ticket;
  std::wstring kind;
  std::wstring label;
  bool kept = false;  ///< may outlive the command that got it
};

/// What was acquired in a session and has to be released.
class Accounts {
 public:
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

/// Enters something that has to be released: a reference, an open object, a handle.
/// @param label what it is, in words that are the same in two runs
Ticket trackResource(std::wstring kind, std::wstring label);
/// A ticket of another session is of no effect.
void releaseResource(Ticket ticket);

/// Enters memory that the receiver has to free: a BSTR, an item id list, an array. It counts as
/// released when COM's task allocator frees it.
/// @return 0 if memory isn't accounted for
Ticket trackMemory(const void* block, std::wstring kind, std::wstring label);

/// Marks what may outlive the command that got it, such as the module's text service; it has to be
/// back at the end of the run.
void keepBeyondCommand(Ticket ticket);

/// What hasn't been released, of the tickets from `since` on, oldest first.
std::vector<Outstanding> outstanding(Ticket since = 0);

/// The ticket of the next resource.
Ticket nextTicket();

/// The accounts of one kind of thing that is opened and closed by a handle, in order.
template <typename Handle>
class HandleLedger {
 public:
  explicit HandleLedger(const wchar_t* kind) : kind(kind) {}

  /// @param first before the handles that are open
  void opened(const Handle& handle, std::wstring label, bool outlivesCommand = false,
              bool first = false) {
    closed(handle);
    const Ticket ticket = trackResource(kind, std::move(label));
    if (outlivesCommand) keepBeyondCommand(ticket);
    entries.insert(first ? entries.begin() : entries.end(), {handle, ticket});
  }

  /// @return false if the handle isn't one of the ledger's
  bool closed(const Handle& handle) {
    const auto at = find(handle);
    if (at == entries.end()) return false;
    releaseResource(at->second);
    entries.erase(at);
    return true;
  }

  bool holds(const Handle& handle) const { return find(handle) != entries.end(); }

  /// A copy: what is done with one handle may open and close others.
  std::vector<Handle> handles() const {
    std::vector<Handle> all;
    all.reserve(entries.size());
    for (const auto& entry : entries) all.push_back(entry.first);
    return all;
  }

  /// Removes handles that are never closed: they stay on the accounts.
  template <typename Predicate>
  void forgetIf(Predicate matches) {
    eraseIf(entries, [&](const auto& entry) { return matches(entry.first); });
  }

 private:
  auto find(const Handle& handle) const {
    return std::find_if(entries.begin(), entries.end(),
                        [&](const auto& entry) { return entry.first == handle; });
  }

  const wchar_t* kind;
  std::vector<std::pair<Handle, Ticket>> entries;
};

}  // namespace wb
