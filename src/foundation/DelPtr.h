#pragma once

/// Owns an iterator that the host made for the caller, and deletes it.
template <class T>
class DelPtr {
 public:
  DelPtr() = default;
  explicit DelPtr(T* made) : object(made) {}
  DelPtr(const DelPtr&) = delete;
  DelPtr& operator=(const DelPtr&) = delete;
  ~DelPtr() { delete object; }

  /// For an operation of the host that makes an iterator. The one that was held is deleted first.
  T*& out() {
    delete object;
    object = nullptr;
    return object;
  }

  T* get() const { return object; }
  T* operator->() const { return object; }
  explicit operator bool() const { return object != nullptr; }

 private:
  T* object = nullptr;
};
