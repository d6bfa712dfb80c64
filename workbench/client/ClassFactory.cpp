#include "client/ClassFactory.h"

#include <atomic>

#include "client/ClientCall.h"
#include "client/MainObject.h"
#include "client/TextService.h"
#include "TessaroClient.h"

namespace wb {
namespace {

std::atomic<long> serverLocks = 0;

using Make = Owned<IUnknown> (*)();

Owned<IUnknown> makeMain() { return Owned<IUnknown>(make<MainObject, VaultClient>().release()); }

Owned<IUnknown> makeTextService() {
  return Owned<IUnknown>(make<TextServiceObject, VaultTextService>().release());
}

/// Lives as long as the library; the reference counts have nothing to do.
class Factory final : public IClassFactory {
 public:
  Factory(const wchar_t* activation, Make make) : activation(activation), makeObject(make) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
    if (!out) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
    *out = known ? static_cast<IClassFactory*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    return ClientCall(activation).run([&]() -> HRESULT {
      if (outer) return CLASS_E_NOAGGREGATION;
      return makeObject()->QueryInterface(iid, out);
    });
  }

  STDMETHODIMP LockServer(BOOL lock) override {
    serverLocks += lock ? 1 : -1;
    return S_OK;
  }

 private:
  const wchar_t* activation;
  Make makeObject;
};

}  // namespace

HRESULT classFactory(REFCLSID classId, REFIID iid, void** out) {
  static Factory mainFactory(L"CoCreateInstance.Main", makeMain);
  static Factory textFactory(L"CoCreateInstance.Text", makeTextService);
  if (!out) return E_POINTER;
  *out = nullptr;
  if (classId == __uuidof(VaultMain)) return mainFactory.QueryInterface(iid, out);
  if (classId == __uuidof(TextService)) return textFactory.QueryInterface(iid, out);
  return CLASS_E_CLASSNOTAVAILABLE;
}

bool isServerLocked() { return serverLocks > 0; }

}  // namespace wb
