// The client as a COM server: its class factories, its entries in the registry, its file's exports.

#include <windows.h>

#include <atomic>
#include <iterator>

#include "client/ClientCall.h"
#include "client/Objects.h"
#include "core/Text.h"

namespace wb {
namespace {

std::atomic<long> serverLocks = 0;

/// Lives as long as the library; the reference counts have no effect.
class Factory final : public IClassFactory {
 public:
  using Make = Owned<IUnknown> (*)();
  Factory(REFCLSID classId, const wchar_t* className, const wchar_t* activation, Make make)
      : classId(classId), className(className), activation(activation), makeObject(make) {}

  const CLSID& classId;
  const wchar_t* const className;

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
  const wchar_t* const activation;
  const Make makeObject;
};

Factory factories[] = {
    {__uuidof(VaultMain), L"Tessaro client", L"CoCreateInstance.Main",
     []() -> Owned<IUnknown> { return mainObject(); }},
    {__uuidof(TextService), L"Tessaro text service", L"CoCreateInstance.Text",
     []() -> Owned<IUnknown> { return textService(); }},
};

std::wstring classKey(const Factory& factory) {
  wchar_t id[39] = {};
  StringFromGUID2(factory.classId, id, static_cast<int>(std::size(id)));
  return std::wstring(L"Software\\Classes\\CLSID\\") + id;
}

std::wstring serverKey(const Factory& factory) { return classKey(factory) + L"\\InprocServer32"; }

LSTATUS writeText(HKEY root, const std::wstring& key, const wchar_t* name,
                  const std::wstring& text) {
  return RegSetKeyValueW(root, key.c_str(), name, REG_SZ, text.c_str(),
                         static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

LSTATUS enterClass(HKEY root, const Factory& factory) {
  const std::wstring file = clientFile(), server = serverKey(factory);
  if (file.empty()) return static_cast<LSTATUS>(GetLastError());
  LSTATUS status = writeText(root, classKey(factory), nullptr, factory.className);
  if (status == ERROR_SUCCESS) status = writeText(root, server, nullptr, file);
  if (status == ERROR_SUCCESS) status = writeText(root, server, L"ThreadingModel", L"Apartment");
  return status;
}

/// Removes a class, if it is this file that serves it.
LSTATUS removeClass(HKEY root, const Factory& factory) {
  const std::wstring file = clientFile();
  std::wstring found(file.size() + 2, L'\0');
  auto size = static_cast<DWORD>(found.size() * sizeof(wchar_t));
  const LSTATUS status = RegGetValueW(root, serverKey(factory).c_str(), nullptr, RRF_RT_REG_SZ,
                                      nullptr, found.data(), &size);
  if (status != ERROR_SUCCESS || !sameName(found.c_str(), file)) return ERROR_SUCCESS;
  return RegDeleteTreeW(root, classKey(factory).c_str());
}

}  // namespace
}  // namespace wb

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  for (wb::Factory& factory : wb::factories) {
    if (classId == factory.classId) return factory.QueryInterface(iid, out);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return wb::LiveObject::any() || wb::serverLocks > 0 ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() {
  for (const wb::Factory& factory : wb::factories) {
    // Wine's COM looks up classes of the computer only; a user who may not enter them there is on
    // Windows, where the user's own do.
    LSTATUS status = enterClass(HKEY_LOCAL_MACHINE, factory);
    if (status == ERROR_ACCESS_DENIED) status = enterClass(HKEY_CURRENT_USER, factory);
    if (status != ERROR_SUCCESS) return HRESULT_FROM_WIN32(status);
  }
  return S_OK;
}

STDAPI DllUnregisterServer() {
  for (const wb::Factory& factory : wb::factories) {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
      const LSTATUS status = removeClass(root, factory);
      if (status != ERROR_SUCCESS) return HRESULT_FROM_WIN32(status);
    }
  }
  return S_OK;
}
