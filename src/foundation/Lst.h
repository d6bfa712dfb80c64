#pragma once

#include <windows.h>

#include <comdef.h>
#include <objbase.h>

#include <new>
#include <utility>

namespace tessaro {

/// A doubly linked list whose nodes come from COM's task allocator.
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

  /// Appends the value: the list takes it over, and its holder is empty afterwards.
  /// @throws _com_error E_OUTOFMEMORY, since a list that lacks a value in silence would mislead its
  /// reader; list and value are as they were then
  void pushBack(T&& value) {
    void* memory = CoTaskMemAlloc(sizeof(Node));
    if (memory == nullptr) _com_issue_error(E_OUTOFMEMORY);
    Node* node = new (memory) Node{std::move(value), nullptr, tail};
    // Not every holder gives up what it held when it is moved from: _bstr_t shares it.
    value = T();
    (tail != nullptr ? tail->next : head) = node;
    tail = node;
    ++count;
  }

  /// Takes the first value out. The list must not be empty.
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

  /// Empties the list.
  void clear() {
    while (!isEmpty()) popFront();
  }

  bool isEmpty() const { return head == nullptr; }
  long long size() const { return count; }
  /// The first node, null if the list is empty; `Node::next` leads on.
  const Node* first() const { return head; }

 private:
  Node* head = nullptr;
  Node* tail = nullptr;
  long long count = 0;
};

}  // namespace tessaro
