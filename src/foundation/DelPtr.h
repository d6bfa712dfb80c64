#pragma once

#include <type_traits>

#include "foundation/HostMemory.h"

namespace tessaro {

/// Owns an iterator that the host made for the caller, and deletes it.
template <class T>
class DelPtr {
 public:
  DelPtr() = default;
  explicit DelPtr(T* made) : object(made) {}
  DelPtr(const DelPtr&) = delete;
  DelPtr& operator=(const DelPtr&) = delete;
  ~DelPtr() { destroy(); }

  /// For an operation of the host that makes an iterator. The one that was held is deleted first.
  T*& out() {
    destroy();
    object = nullptr;
    return object;
  }

  T* get() const { return object; }
  T* operator->() const { return object; }
  explicit operator bool() const { return object != nullptr; }

 private:
  /// A virtual destructor is the host's, and frees the memory as well.
  void destroy() {
    if constexpr (std::has_virtual_destructor_v<T>) {
      delete object;
    } else if (object != nullptr) {
      object->~T();
      freeHostMemory(object);
    }
  }

  T* object = nullptr;
};

}  // namespace tessaro
