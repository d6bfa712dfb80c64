#pragma once

namespace tessaro {

/// Keeps a database object of the host open for a scope: closes it (AcDbObject::close) and does
/// nothing else. The object itself stays the host's.
template <class T>
class ArxPtr {
 public:
  ArxPtr() = default;
  explicit ArxPtr(T* opened) : object(opened) {}
  ArxPtr(const ArxPtr&) = delete;
  ArxPtr& operator=(const ArxPtr&) = delete;
  virtual ~ArxPtr() { close(); }

  /// Closes the object ahead of the scope's end; the holder is null afterwards.
  void close() {
    if (object != nullptr) {
      object->close();
      object = nullptr;
    }
  }

  /// For an operation of the host that opens an object. What was open is closed first.
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
