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

/// Runs this program again and waits for its end; one that doesn't end in time is terminated.
ChildResult runChild(const std::wstring& arguments, unsigned seconds);

/// What tells a failure from others: the exit code of a crash or a hang, the problem without its
/// numbers of a session that was judged. Empty for a child that passed.
std::string failureOf(const ChildResult& child);

/// The fewest of the steps that still fail in this way, as far as leaving parts out leads; none if
/// the session doesn't when it runs alone.
std::vector<size_t> shrink(unsigned seed, unsigned steps, const std::string& failure);

/// The numbers with commas between them.
std::wstring joined(const std::vector<size_t>& numbers);

}  // namespace sessions
