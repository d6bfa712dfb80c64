#pragma once

#include <windows.h>

#include <shtypes.h>

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "core/ResultCodes.h"
#include "core/StandInTime.h"

namespace wb {

class LiveObject;

struct ReleaseReference {
  void operator()(IUnknown* object) const { object->Release(); }
};

/// A reference that is released at the end of the scope.
template <class Interface>
using Owned = std::unique_ptr<Interface, ReleaseReference>;

/// A failure of an operation. A text that isn't empty reaches the caller as the thread's error
/// object (SetErrorInfo).
class ClientFailure : public std::exception {
 public:
  explicit ClientFailure(HRESULT code, std::wstring text = {})
      : code(code), text(std::move(text)) {}

  const char* what() const noexcept override { return "the client refused the operation"; }

  HRESULT code;
  std::wstring text;
};

/// A new BSTR, the caller's.
/// @throws std::bad_alloc
BSTR newBstr(std::wstring_view text);

/// The text of a BSTR; a null one is an empty text.
std::wstring textOf(BSTR text);

/// How a value that is returned is reported. Memory that the caller has to free is entered in the
/// accounts at that.
std::wstring describe(BSTR value);
std::wstring describe(const VARIANT& value);
std::wstring describe(long value);
std::wstring describe(VARIANT_BOOL value);
std::wstring describe(DATE value);
std::wstring describe(LPITEMIDLIST value);
std::wstring describe(const LiveObject* value);
/// An array of interface pointers in task memory.
std::wstring describeArray(const void* array);

template <class Interface>
std::wstring describe(Interface* value) {
  return describe(dynamic_cast<const LiveObject*>(value));
}

template <class Interface>
std::wstring describe(Interface** value) {
  return describeArray(value);
}

/// Stores what an operation returns in the caller's variable.
inline void assign(BSTR* target, std::wstring_view text) { *target = newBstr(text); }
inline void assign(long* target, long value) { *target = value; }
inline void assign(DATE* target, DATE value) { *target = value; }
inline void assign(VARIANT* target, const VARIANT& value) { *target = value; }
inline void assign(LPITEMIDLIST* target, LPITEMIDLIST value) { *target = value; }
inline void assign(VARIANT_BOOL* target, bool value) {
  *target = value ? VARIANT_TRUE : VARIANT_FALSE;
}
template <class Interface>
void assign(Interface** target, Owned<Interface> object) {
  *target = object.release();
}

/// One call of one operation: every operation of the client is run through it. It describes the
/// arguments, empties what is returned, lets the call fail if it was asked to, turns what the body
/// throws into a result code and reports the call as one line of the transcript.
///
/// A body assigns what it returns last, when nothing can fail any more, so a call that failed
/// leaves nulls, zeros and nothing to free.
class ClientCall {
 public:
  /// @param operation "Interface.operation"
  explicit ClientCall(std::wstring operation) : operation(std::move(operation)) {}
  ClientCall(const std::wstring& interfaceName, std::string_view method);

  ClientCall& with(const wchar_t* name, long value);
  ClientCall& with(const wchar_t* name, const wchar_t* text);
  ClientCall& with(const wchar_t* name, const VARIANT& value);
  /// A result code, reported by its name.
  ClientCall& code(const wchar_t* name, HRESULT value);
  /// A window, or its handle's low half: reported as "main" if it is the host's main window.
  ClientCall& window(const wchar_t* name, long handle);
  /// An object that the call can't do without: null is E_POINTER.
  ClientCall& object(const wchar_t* name, IUnknown* object);

  /// What is returned; a null pointer is E_POINTER.
  /// @param name reported if the operation returns several values
  template <class Type>
  ClientCall& out(Type* target, const wchar_t* name = nullptr) {
    if (!target) nullArgument = true;
    return optionalOut(target, name);
  }

  /// What is returned if the caller asks for it: its pointer may be null.
  template <class Type>
  ClientCall& optionalOut(Type* target, const wchar_t* name = nullptr) {
    if (!target) return *this;
    *target = {};
    outs.push_back({name, [target] { return describe(*target); }});
    return *this;
  }

  /// Runs the operation. `body` throws ClientFailure, StoreError or what the library throws; what
  /// it returns is the result otherwise, success if it returns nothing.
  template <class Body>
  HRESULT run(Body body) {
    return runBody([&]() -> HRESULT {
      if constexpr (!std::is_void_v<std::invoke_result_t<Body>>) return body();
      body();
      return S_OK;
    });
  }

  /// The same for an operation with one value to return, which is that of `body`.
  template <class Type, class Body>
  HRESULT result(Type* target, Body body) {
    return out(target).run([&] { assign(target, body()); });
  }

 private:
  struct Out {
    const wchar_t* name;
    std::function<std::wstring()> describe;
  };

  ClientCall& argument(const wchar_t* name, const std::wstring& value);
  HRESULT runBody(const std::function<HRESULT()>& body);
  HRESULT guarded(const std::function<HRESULT()>& body) const;
  void reportResult(HRESULT result) const;

  const InStandIn inside;
  const std::wstring operation;
  std::wstring arguments;
  std::vector<Out> outs;
  bool nullArgument = false;
};

}  // namespace wb
