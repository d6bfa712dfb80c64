#pragma once

namespace tessaro {

/// Closes an open database object of the host at the end of a scope (AcDbObject::close). The host
/// owns the object itself.
template <class T>
class ArxPtr {
 public:
  ArxPtr() = default;
  explicit ArxPtr(T* opened) : object(opened) {}
  ArxPtr(const ArxPtr&) = delete;
  ArxPtr& operator=(const ArxPtr&) = delete;
  virtual ~ArxPtr() { close(); }

  /// Closes the object before the end of the scope; the holder is null afterwards.
  void close() {
    if (object != nullptr) {
      object->close();
      object = nullptr;
    }
  }

  /// Closes the object that is held.
  /// @return the place for an operation of the host that opens an object
  T*& out() {
    close();
    return object;
  }

  T* get() const { return object; }
  T* operator->() const { return object; }
  T& operator*() const { return *object; }
  explicit operator bool() const { return object != nullptr; }

 private:
  T* object = nullptr;
};

}  // namespace tessaro
