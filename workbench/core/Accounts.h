#pragma once

#include <string>
#include <vector>

namespace wb {

/// Names one thing that was handed out; later tickets are larger.
using Ticket = unsigned long long;

/// Enters something that has to be given back: a reference, an open object, a handle.
/// @param label what it is, in words that two runs tell alike.
Ticket handOut(std::wstring kind, std::wstring label);
void giveBack(Ticket ticket);

/// Enters memory that the receiver has to free: a BSTR, an item id list, an array. It counts as
/// given back when COM's task allocator frees it.
/// @return 0 if memory isn't accounted for
Ticket handOutMemory(const void* memory, std::wstring kind, std::wstring label);

/// From here on no memory is accounted for in this process: the watching of COM's allocator slows
/// down whoever allocates. To be called before the first memory is entered.
void leaveMemoryOut();
bool memoryIsLeftOut();

/// What may outlive the command that got it, such as the module's text service; it has to be back
/// at the end of the run.
void keepBeyondCommand(Ticket ticket);

struct Outstanding {
  Ticket ticket;
  std::wstring kind;
  std::wstring label;
  bool kept;
};

/// What hasn't been given back, of the tickets from `since` on, oldest first.
std::vector<Outstanding> outstanding(Ticket since = 0);

/// The ticket that the next thing gets.
Ticket nextTicket();

}  // namespace wb
