#pragma once

#include <string>
#include <vector>

namespace sessions {

/// How a child ended, and what it wrote.
struct ChildResult {
  unsigned long code;
  std::string output;
};

/// Has Windows watch the heaps of every process of this program that starts from here on: what is
/// written beyond a block or after it was freed is found by HeapValidate.
void watchHeaps();

/// Whether the heaps of this process are watched so.
bool heapsAreWatched();

/// Runs this program again and waits for its end; one that doesn't end in time is terminated.
ChildResult runChild(const std::wstring& arguments, unsigned seconds);

/// The fewest of the steps that still fail, as far as leaving parts out leads.
std::vector<size_t> shrink(unsigned seed, unsigned steps);

/// The numbers with commas between them.
std::wstring joined(const std::vector<size_t>& numbers);

}  // namespace sessions
