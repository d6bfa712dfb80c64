#pragma once

#include <windows.h>

#include <shtypes.h>

#include <functional>
#include <string>
#include <vector>

#include "client/LiveObject.h"
#include "core/StandInTime.h"

namespace wb {

/// One call of one operation: every operation of the client is run through it. It describes the
/// arguments, empties what comes out, lets the call fail if it was told to, turns what the body
/// throws into a result code and tells the call as one line of the transcript.
///
/// A body assigns the outs last, when nothing can fail any more, so a call that failed leaves
/// nulls, zeros and nothing to free.
class ClientCall {
 public:
  /// @param operation "Interface.operation"
  explicit ClientCall(const wchar_t* operation) : operation(operation) {}

  ClientCall& with(const wchar_t* name, long value);
  ClientCall& with(const wchar_t* name, const wchar_t* text);
  ClientCall& with(const wchar_t* name, const VARIANT& value);
  /// A result code, told by its name.
  ClientCall& code(const wchar_t* name, HRESULT value);
  /// A window, or its handle's low half: told as "main" if it is the host's main window.
  ClientCall& window(const wchar_t* name, long handle);
  /// An object that the call can't do without: null is E_POINTER.
  ClientCall& object(const wchar_t* name, IUnknown* object);

  /// What comes out; a null pointer is E_POINTER.
  /// @param name told if the operation has several outs
  template <class Type>
  ClientCall& out(Type* target, const wchar_t* name = nullptr) {
    if (!target) nullArgument = true;
    return optionalOut(target, name);
  }

  /// What comes out if the caller wants it.
  template <class Type>
  ClientCall& optionalOut(Type* target, const wchar_t* name = nullptr);

  /// Runs the operation. `body` throws ClientFailure, StoreError or what the library throws;
  /// what it returns is the result otherwise.
  HRESULT run(const std::function<HRESULT()>& body);

  /// The same for a body that has no result but success.
  HRESULT runVoid(const std::function<void()>& body);

 private:
  struct Out {
    const wchar_t* name;
    std::function<std::wstring()> describe;
  };

  ClientCall& argument(const wchar_t* name, const std::wstring& value);
  HRESULT guarded(const std::function<HRESULT()>& body) const;
  void tellResult(HRESULT result) const;

  const InStandIn inside;
  const wchar_t* operation;
  std::wstring arguments;
  std::vector<Out> outs;
  bool nullArgument = false;
};

/// How a value that comes out is emptied and told. Memory that the caller has to free is entered
/// in the accounts when it is told.
namespace out {
void empty(BSTR* target);
void empty(VARIANT* target);
void empty(long* target);
void empty(VARIANT_BOOL* target);
void empty(DATE* target);
void empty(LPITEMIDLIST* target);
std::wstring describe(BSTR value);
std::wstring describe(const VARIANT& value);
std::wstring describe(long value);
std::wstring describe(VARIANT_BOOL value);
std::wstring describe(DATE value);
std::wstring describe(LPITEMIDLIST value);
std::wstring describe(const LiveObject* value);

template <class Interface>
void empty(Interface** target) {
  *target = nullptr;
}

template <class Interface>
void empty(Interface*** target) {
  *target = nullptr;
}

template <class Interface>
std::wstring describe(Interface* value) {
  return describe(dynamic_cast<const LiveObject*>(value));
}

/// An array of interface pointers in task memory.
std::wstring describeArray(const void* array);

template <class Interface>
std::wstring describe(Interface** value) {
  return describeArray(value);
}
}  // namespace out

template <class Type>
ClientCall& ClientCall::optionalOut(Type* target, const wchar_t* name) {
  if (target) {
    out::empty(target);
    outs.push_back({name, [target] { return out::describe(*target); }});
  }
  return *this;
}

}  // namespace wb
