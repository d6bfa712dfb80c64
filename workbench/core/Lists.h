#pragma once

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace wb {

/// Erases what the predicate is true for.
template <class Container, class Predicate>
void eraseIf(Container& container, Predicate is) {
  container.erase(std::remove_if(container.begin(), container.end(), is), container.end());
}

template <class Container, class Value>
bool contains(const Container& container, const Value& value) {
  return std::find(std::begin(container), std::end(container), value) != std::end(container);
}

/// The first element that the predicate is true for, null if there is none.
template <class Container, class Predicate>
auto* findIf(Container& container, Predicate is) {
  const auto found = std::find_if(container.begin(), container.end(), is);
  return found == container.end() ? nullptr : &*found;
}

/// Removes and returns the first element of a queue, nothing if it is empty.
template <class Queue>
std::optional<typename Queue::value_type> popFirst(Queue& queue) {
  if (queue.empty()) return std::nullopt;
  std::optional<typename Queue::value_type> first(std::move(queue.front()));
  queue.pop_front();
  return first;
}

}  // namespace wb
