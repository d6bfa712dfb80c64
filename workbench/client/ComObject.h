#pragma once

#include <windows.h>

#include <string>
#include <type_traits>
#include <utility>

#include "client/LiveObject.h"
#include "client/Owned.h"
#include "client/TypeLibrary.h"
#include "core/StandInTime.h"

namespace wb {

/// One interface of an object that only C++ callers use.
template <class Interface>
class Plain : public Interface {
 public:
  using Offered = Interface;
};

/// One dual interface of an object: IDispatch comes from the type library, so that a call by name
/// takes the same road as one through the virtual function table.
template <class Interface>
class Dual : public Interface {
 public:
  using Offered = Interface;

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }

  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    if (!info) return E_POINTER;
    *info = nullptr;
    return index == 0 ? typeInfo(__uuidof(Interface), info) : DISP_E_BADINDEX;
  }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return idsOfNames(__uuidof(Interface), names, count, ids);
  }

  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
    return invokeByType(__uuidof(Interface), static_cast<Interface*>(this),
                        {member, flags, arguments, result, exception, badArgument});
  }
};

/// An object of the client: IUnknown over its parts. Each part implements one interface and is
/// made from a copy of the object's shared state; the first one also answers for IUnknown and
/// IDispatch. Made with one reference, which belongs to whoever made it.
template <class... Parts>
class ComObject : public Parts..., public LiveObject {
 public:
  /// @param label what the object is called in the transcript and in the accounts
  template <class State>
  ComObject(std::wstring label, const State& state)
      : Parts(state)..., LiveObject(std::move(label)) {}
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;
  ~ComObject() override = default;

  STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
    const InStandIn inside;
    if (!out) return E_POINTER;
    *out = find(iid);
    const HRESULT allowed = *out ? admit(iid) : E_NOINTERFACE;
    if (SUCCEEDED(allowed)) {
      addReference();
    } else {
      *out = nullptr;
    }
    return allowed;
  }

  STDMETHODIMP_(ULONG) AddRef() override {
    const InStandIn inside;
    return addReference();
  }

  STDMETHODIMP_(ULONG) Release() override {
    const InStandIn inside;
    const ULONG left = removeReference();
    if (left == 0) delete this;
    return left;
  }

 protected:
  /// Whether the object gives out that interface now; a failure is QueryInterface's result.
  virtual HRESULT admit(REFIID iid) { return admitInterface(iid); }

 private:
  void* find(REFIID iid) {
    void* found = nullptr;
    (take<Parts>(iid, found), ...);
    return found;
  }

  template <class Part>
  void take(REFIID iid, void*& found) {
    if (found) return;
    using Offered = typename Part::Offered;
    const bool isBase = iid == __uuidof(IUnknown) ||
                        (std::is_base_of_v<IDispatch, Offered> && iid == __uuidof(IDispatch));
    if (isBase || iid == __uuidof(Offered)) found = static_cast<Offered*>(static_cast<Part*>(this));
  }
};

/// A new object, as one of its interfaces.
template <class Object, class Interface, class... Arguments>
Owned<Interface> make(Arguments&&... arguments) {
  return Owned<Interface>(
      static_cast<Interface*>(new Object(std::forward<Arguments>(arguments)...)));
}

}  // namespace wb
