#pragma once

#include <cstddef>
#include <vector>

/// The host's growing array.
template <class T>
class AcArray {
 public:
  int length() const { return static_cast<int>(items.size()); }
  bool isEmpty() const { return items.empty(); }
  const T& at(int index) const { return items[static_cast<std::size_t>(index)]; }
  T& at(int index) { return items[static_cast<std::size_t>(index)]; }
  const T& operator[](int index) const { return at(index); }
  T& operator[](int index) { return at(index); }
  /// Appends and gives the new item's index.
  int append(const T& item) {
    items.push_back(item);
    return length() - 1;
  }
  AcArray& removeAll() {
    items.clear();
    return *this;
  }

 private:
  std::vector<T> items;
};
