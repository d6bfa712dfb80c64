#include "vault/MessageStrings.h"

#include <utility>

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "foundation/ModuleFile.h"
#include "vault/VaultInterfaces.h"

namespace tessaro {

namespace {

const wchar_t productName[] = L"Halvern Vault Manager";

/// The service of the add-in's own texts. A plain pointer, since a holder's destructor could run
/// after COM is uninitialized; `releaseTextService` runs before.
VaultTextService* textService = nullptr;

/// @return the file name of a module without folder and extension; a path without a folder is
/// returned whole
CString baseName(HINSTANCE module) {
  CString name = moduleFilePath(module);
  const size_t backslash = name.rfind(L'\\');
  if (backslash == CString::npos) return name;
  name.erase(0, backslash + 1);
  return name.substr(0, name.rfind(L'.'));
}

bool haveTextService() {
  if (textService != nullptr) return true;
  const AppContext* app = currentApp();
  const HRESULT result =
      openTextService(app != nullptr ? app->moduleInstance : nullptr, nullptr, productName);
  return SUCCEEDED(result) && textService != nullptr;
}

}  // namespace

_bstr_t loadMessage(const Message& message) {
  if (!haveTextService()) return message.defaultText;
  _bstr_t text;
  if (FAILED(textService->text(message.number, text.GetAddress()))) return message.defaultText;
  // A null string is an empty text; the host's prompts don't accept a null pointer.
  return !text ? _bstr_t(L"") : text;
}

_bstr_t lookupSectionText(long number, const wchar_t* defaultText, const wchar_t* section,
                          const wchar_t* key) {
  VaultTextServicePtr service;
  service.CreateInstance(__uuidof(TextService), nullptr, CLSCTX_INPROC_SERVER);
  // S_FALSE: the service exists, but hasn't this section.
  if (!service || service->open(_bstr_t(productName), _bstr_t(section)) != S_OK) return defaultText;
  _bstr_t text;
  service->sectionText(number, _bstr_t(key), text.GetAddress());
  return !text ? _bstr_t(defaultText) : text;
}

HRESULT openTextService(HINSTANCE module, const wchar_t* moduleName, const wchar_t* product) {
  if (textService != nullptr) return E_FAIL;
  const CString name = moduleName != nullptr ? moduleName : baseName(module);
  VaultTextServicePtr service;
  const HRESULT created = service.CreateInstance(__uuidof(TextService), nullptr, CLSCTX_ALL);
  if (FAILED(created)) return created;
  const _bstr_t productText(product);
  const _bstr_t moduleText(name.c_str());
  textService = service.Detach();
  const HRESULT opened = textService->open(productText, moduleText);
  return FAILED(opened) ? opened : S_OK;
}

void releaseTextService() {
  VaultTextService* const released = std::exchange(textService, nullptr);
  if (released == nullptr) return;
  try {
    released->Release();
  } catch (const _com_error&) {
    // The module is being unloaded; there is nothing left to do.
  }
}

void forgetTextService() { textService = nullptr; }

}  // namespace tessaro
