#pragma once

#include <windows.h>

#include <comdef.h>
#include <objbase.h>

#include <new>
#include <utility>

namespace tessaro {

/// A doubly linked list whose nodes are allocated by COM's task allocator.
template <class T>
class Lst {
 public:
  struct Node {
    T value;
    Node* next;
    Node* prev;
  };

  Lst() = default;
  Lst(const Lst&) = delete;
  Lst& operator=(const Lst&) = delete;
  virtual ~Lst() { clear(); }

  /// Moves a value to the end of the list; `value` is empty afterwards.
  /// @throws _com_error E_OUTOFMEMORY; list and value are unchanged then
  void pushBack(T&& value) {
    void* memory = CoTaskMemAlloc(sizeof(Node));
    if (memory == nullptr) _com_issue_error(E_OUTOFMEMORY);
    Node* node = new (memory) Node{std::move(value), nullptr, tail};
    // A moved-from holder need not be empty: _bstr_t shares its text.
    value = T();
    (tail != nullptr ? tail->next : head) = node;
    tail = node;
    ++count;
  }

  /// Removes the first value and returns it. The list must not be empty.
  T popFront() {
    Node* first = head;
    T value = std::move(first->value);
    head = first->next;
    (head != nullptr ? head->prev : tail) = nullptr;
    --count;
    first->~Node();
    CoTaskMemFree(first);
    return value;
  }

  /// Removes all values.
  void clear() {
    while (!isEmpty()) popFront();
  }

  bool isEmpty() const { return head == nullptr; }
  long long size() const { return count; }
  /// @return the first node, null if the list is empty
  const Node* first() const { return head; }

 private:
  Node* head = nullptr;
  Node* tail = nullptr;
  long long count = 0;
};

}  // namespace tessaro
