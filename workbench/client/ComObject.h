#pragma once

#include <windows.h>

#include <oaidl.h>

#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "client/ClientCall.h"
#include "core/Accounts.h"
#include "core/StandInTime.h"

namespace wb {

/// What every object of the client is besides its interfaces: counted, and labelled. Each reference
/// has its own entry in the accounts, so a leak shows once for each reference that wasn't released.
class LiveObject {
 public:
  /// @param label what the object is called in the transcript and in the accounts
  explicit LiveObject(std::wstring label);
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;

  const std::wstring& label() const { return label_; }

  /// The references that there are now may outlive the command that took them.
  void keepReferences();

  /// Whether any object is alive: the client's file can't be unloaded then (DllCanUnloadNow).
  static bool any();

 protected:
  virtual ~LiveObject();

  ULONG addReference();
  ULONG removeReference();

  /// The result of a query for an interface that the object has. One of TessaroClient.idl can be
  /// made to fail, which is reported.
  static HRESULT queryResult(const std::wstring& name, bool isAvailable);

 private:
  std::wstring label_;
  std::vector<Ticket> references;
};

/// The label of an object that has a name: its kind and the name in quotes.
std::wstring namedLabel(const std::wstring& kind, std::wstring_view name);

/// The name of an interface.
/// @param typeName as the compiler writes it, "?AUVaultFile@@" or "struct VaultFile"
std::wstring interfaceName(std::string_view typeName);

template <class Interface>
const std::wstring& interfaceName() {
  static const std::wstring name = interfaceName(typeid(Interface).name());
  return name;
}

/// The client's own library, and the path of its file.
HMODULE clientModule();
std::wstring clientFile();

/// Calls `use` with the type information of a dual interface, from the type library that the
/// client's file carries as its resource 1.
/// @return the result of `use`, or of the failed LoadTypeLibEx or GetTypeInfoOfGuid
HRESULT withTypeInfo(REFIID iid, const std::function<HRESULT(ITypeInfo*)>& use);

/// One interface of an object, for C++ callers only.
template <class Interface, class State>
struct Plain : Interface {
  using Offered = Interface;

  /// Whether QueryInterface returns the interface now.
  bool isAvailable() const { return true; }

  /// The call of the method in which this stands.
  static ClientCall call(std::string_view method = __builtin_FUNCTION()) {
    const InStandIn inside;
    return ClientCall(interfaceName<Interface>(), method);
  }

  State state;  ///< a copy of the object's
};

/// One dual interface of an object: IDispatch is answered from the type library, so a call by name
/// takes the same way as one through the table of virtual functions.
template <class Interface, class State>
struct Dual : Plain<Interface, State> {
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }

  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return withTypeInfo(__uuidof(Interface), [&](ITypeInfo* found) {
      return found->QueryInterface(IID_ITypeInfo, reinterpret_cast<void**>(info));
    });
  }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return withTypeInfo(__uuidof(Interface),
                        [&](ITypeInfo* info) { return info->GetIDsOfNames(names, count, ids); });
  }

  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
    return withTypeInfo(__uuidof(Interface), [&](ITypeInfo* info) {
      SetErrorInfo(0, nullptr);
      return info->Invoke(static_cast<Interface*>(this), member, flags, arguments, result,
                          exception, badArgument);
    });
  }
};

/// An object of the client: IUnknown over its parts, each of which implements one interface. The
/// first one also stands for IUnknown and IDispatch. Made with one reference, the maker's.
template <class... Parts>
class ComObject final : public Parts..., public LiveObject {
 public:
  template <class State>
  ComObject(std::wstring label, const State& state) : LiveObject(std::move(label)) {
    ((Parts::state = state), ...);
  }

  STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
    const InStandIn inside;
    if (!out) return E_POINTER;
    *out = nullptr;
    HRESULT result = E_NOINTERFACE;
    static_cast<void>((query<Parts>(iid, out, result) || ...));
    if (SUCCEEDED(result)) addReference();
    return result;
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

 private:
  /// Whether it is the part that a query for the interface is for.
  template <class Part>
  bool query(REFIID iid, void** out, HRESULT& result) {
    using Offered = typename Part::Offered;
    const bool isBase = iid == __uuidof(IUnknown) ||
                        (std::is_base_of_v<IDispatch, Offered> && iid == __uuidof(IDispatch));
    if (!isBase && iid != __uuidof(Offered)) return false;
    result = isBase ? S_OK : queryResult(interfaceName<Offered>(), Part::isAvailable());
    if (SUCCEEDED(result)) *out = static_cast<Offered*>(static_cast<Part*>(this));
    return true;
  }
};

/// A new object of these parts, as one of its interfaces.
template <class Interface, class... Parts, class State>
Owned<Interface> make(std::wstring label, const State& state) {
  return Owned<Interface>(
      static_cast<Interface*>(new ComObject<Parts...>(std::move(label), state)));
}

}  // namespace wb
