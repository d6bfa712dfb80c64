#pragma once

#include <windows.h>

/// The interfaces of a COM object made for a test. Every object that is alive is counted.
template <class First, class... Others>
class FakeObject : public First, public Others... {
 public:
  FakeObject() { ++alive; }
  FakeObject(const FakeObject&) = delete;
  FakeObject& operator=(const FakeObject&) = delete;
  virtual ~FakeObject() { --alive; }

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = nullptr;
    if (id == __uuidof(IUnknown) || id == __uuidof(IDispatch)) *out = static_cast<First*>(this);
    find<First>(id, out);
    (find<Others>(id, out), ...);
    if (*out == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references;
    if (left == 0) delete this;
    return left;
  }

  static inline int alive = 0;

 private:
  template <class Interface>
  void find(REFIID id, void** out) {
    if (id == __uuidof(Interface)) *out = static_cast<Interface*>(this);
  }

  ULONG references = 0;
};

/// A class that COM makes objects of for as long as this is alive: in this process, without a word
/// in the registry (CoRegisterClassObject).
template <class Object>
class FakeClass {
 public:
  explicit FakeClass(REFCLSID id) {
    CoRegisterClassObject(id, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
  }
  FakeClass(const FakeClass&) = delete;
  FakeClass& operator=(const FakeClass&) = delete;
  ~FakeClass() { CoRevokeClassObject(cookie); }

 private:
  struct Factory : IClassFactory {
    STDMETHODIMP QueryInterface(REFIID id, void** out) override {
      const bool known = id == __uuidof(IUnknown) || id == __uuidof(IClassFactory);
      *out = known ? this : nullptr;
      return known ? S_OK : E_NOINTERFACE;
    }
    // It lives as long as the FakeClass.
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** out) override {
      auto* object = new Object;
      object->AddRef();
      const HRESULT result = object->QueryInterface(id, out);
      object->Release();
      return result;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
  };

  Factory factory;
  DWORD cookie = 0;
};

/// The same for interfaces that derive from IDispatch, which nobody asks anything.
template <class... Interfaces>
class FakeDual : public FakeObject<Interfaces...> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    return E_NOTIMPL;
  }
};
