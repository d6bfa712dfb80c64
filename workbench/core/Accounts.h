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
  bool kept;
};

/// What was handed out in a session and has to be given back. Safe to call on any thread.
class Accounts {
 public:
  Accounts() = default;
  Accounts(const Accounts&) = delete;
  Accounts& operator=(const Accounts&) = delete;
  ~Accounts();

  /// Enters something that has to be given back: a reference, an open object, a handle.
  /// @param label what it is, in words that two runs tell alike.
  Ticket handOut(std::wstring kind, std::wstring label);
  /// A ticket of another session is of no effect.
  void giveBack(Ticket ticket);

  /// Enters memory that the receiver has to free: a BSTR, an item id list, an array. It counts as
  /// given back when COM's task allocator frees it.
  /// @return 0 if memory isn't accounted for
  Ticket handOutMemory(const void* memory, std::wstring kind, std::wstring label);
  /// The allocator frees a block.
  void memoryIsFreed(const void* block);

  /// From here on no memory is accounted for: the watching of COM's allocator slows down whoever
  /// allocates. To be called before the first memory is entered.
  void leaveMemoryOut() { memoryLeftOut = true; }
  bool memoryIsLeftOut() const { return memoryLeftOut; }

  /// What may outlive the command that got it, such as the module's text service; it has to be back
  /// at the end of the run.
  void keepBeyondCommand(Ticket ticket);

  /// What hasn't been given back, of the tickets from `since` on, oldest first.
  std::vector<Outstanding> outstanding(Ticket since) const;
  /// The ticket that the next thing gets.
  Ticket nextTicket() const;

 private:
  struct Entry {
    std::wstring kind;
    std::wstring label;
    bool kept = false;
    bool isMemory = false;  ///< it may come back on any thread
  };
  static Ticket firstTicket();
  bool watchesFrees();

  mutable std::recursive_mutex mutex;
  std::map<Ticket, Entry> entries;
  std::unordered_map<const void*, Ticket> memory;
  Ticket following = firstTicket();
  bool memoryLeftOut = false;
  std::optional<bool> watches;  ///< whether the allocator's frees are seen; empty until it is tried
};

// The same for the current session; outside one nothing is entered and the ticket is 0.
Ticket handOut(std::wstring kind, std::wstring label);
void giveBack(Ticket ticket);
Ticket handOutMemory(const void* memory, std::wstring kind, std::wstring label);
void keepBeyondCommand(Ticket ticket);
std::vector<Outstanding> outstanding(Ticket since = 0);
Ticket nextTicket();

}  // namespace wb
