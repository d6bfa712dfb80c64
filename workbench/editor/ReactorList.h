#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/Accounts.h"
#include "core/Names.h"
#include "core/StandInTime.h"
#include "editor/Guarded.h"

namespace wb {

/// The reactors of an event source, in the order they were added, each once.
template <class Reactor>
class ReactorList {
 public:
  explicit ReactorList(std::wstring label) : label_(std::move(label)) {}

  void add(Reactor* reactor) {
    if (!reactor || find(reactor) != entries_.end()) return;
    const Ticket ticket = handOut(L"reactor", label_);
    keepBeyondCommand(ticket);
    entries_.emplace_back(reactor, ticket);
  }

  void remove(Reactor* reactor) {
    const auto found = find(reactor);
    if (found == entries_.end()) return;
    giveBack(found->second);
    entries_.erase(found);
  }

  /// Sends an event to those that are in the list when their turn comes: a reactor may take
  /// itself or another away while the event goes round.
  template <class Event>
  void each(std::wstring_view name, Event&& event) {
    const auto atStart = entries_;
    for (const auto& entry : atStart) {
      const auto now = find(entry.first);
      if (now == entries_.end() || now->second != entry.second) continue;
      const InModule outside;
      runGuarded(name, [&] { event(*entry.first); });
    }
  }

  /// Takes away what an application left behind, whose code is about to go.
  void dropOf(HMODULE module) {
    entries_.erase(
        std::remove_if(entries_.begin(), entries_.end(),
                       [&](const auto& entry) { return isOfModule(module, entry.first); }),
        entries_.end());
  }

 private:
  using Entries = std::vector<std::pair<Reactor*, Ticket>>;
  typename Entries::iterator find(Reactor* reactor) {
    return std::find_if(entries_.begin(), entries_.end(),
                        [&](const auto& entry) { return entry.first == reactor; });
  }

  std::wstring label_;
  Entries entries_;
};

}  // namespace wb
