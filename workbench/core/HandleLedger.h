#pragma once

#include <map>
#include <string>

#include "core/Accounts.h"

namespace wb {

/// The accounts of one kind of thing that is opened and closed by a handle.
template <typename Handle>
class HandleLedger {
 public:
  explicit HandleLedger(const wchar_t* kind) : kind(kind) {}

  void opened(const Handle& handle, std::wstring label, bool outlivesCommand = false) {
    closed(handle);
    const Ticket ticket = handOut(kind, std::move(label));
    if (outlivesCommand) keepBeyondCommand(ticket);
    tickets[handle] = ticket;
  }

  /// False if the handle isn't one of the ledger's.
  bool closed(const Handle& handle) {
    const auto at = tickets.find(handle);
    if (at == tickets.end()) return false;
    giveBack(at->second);
    tickets.erase(at);
    return true;
  }

  template <typename Predicate>
  void closedWhere(Predicate matches) {
    for (auto at = tickets.begin(); at != tickets.end();) {
      if (matches(at->first)) {
        giveBack(at->second);
        at = tickets.erase(at);
      } else {
        ++at;
      }
    }
  }

  /// Forgets the handles; what is open stays on the accounts.
  void forget() { tickets.clear(); }

 private:
  const wchar_t* kind;
  std::map<Handle, Ticket> tickets;
};

}  // namespace wb
