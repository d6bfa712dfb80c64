#pragma once

#include <map>

#include "core/Accounts.h"
#include "editor/Selection.h"

namespace wb {

/// The selection sets that applications have, by their numbers.
class SelectionSets {
 public:
  /// @throws HostError if there are as many as the host can have
  long long make(Selection::Ids ids);
  /// @throws HostError if there is none of that number
  const Selection::Ids& find(long long number) const;
  /// @throws HostError if there is none of that number
  void free(long long number);

 private:
  struct Set {
    Selection::Ids ids;
    Ticket ticket;
  };
  std::map<long long, Set> sets;
  long long last = 0;
};

}  // namespace wb
