#pragma once

#include <type_traits>

#include "foundation/HostMemory.h"

namespace tessaro {

/// Owner of an iterator that the host returned to the caller.
template <class T>
class DelPtr {
 public:
  DelPtr() = default;
  explicit DelPtr(T* made) : object(made) {}
  DelPtr(const DelPtr&) = delete;
  DelPtr& operator=(const DelPtr&) = delete;
  ~DelPtr() { destroy(); }

  /// Deletes the iterator that is held.
  /// @return the place for an operation of the host that makes an iterator
  T*& out() {
    destroy();
    object = nullptr;
    return object;
  }

  T* get() const { return object; }
  T* operator->() const { return object; }
  explicit operator bool() const { return object != nullptr; }

 private:
  /// A virtual destructor is the host's code, which also frees the memory.
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
