#include "client/Registration.h"

#include <iterator>
#include <string>

#include "client/TypeLibrary.h"
#include "core/Text.h"
#include "TessaroClient.h"

namespace wb {
namespace {

const struct {
  const CLSID& id;
  const wchar_t* name;
} classes[] = {
    {__uuidof(VaultMain), L"Tessaro client"},
    {__uuidof(TextService), L"Tessaro text service"},
};

constexpr wchar_t classesKey[] = L"Software\\Classes\\";

std::wstring classKey(REFCLSID id) {
  wchar_t text[39] = {};
  StringFromGUID2(id, text, static_cast<int>(std::size(text)));
  return std::wstring(L"CLSID\\") + text;
}

std::wstring serverKey(REFCLSID id) { return classKey(id) + L"\\InprocServer32"; }

LSTATUS writeText(HKEY root, const std::wstring& key, const wchar_t* name,
                  const std::wstring& text) {
  return RegSetKeyValueW(root, (classesKey + key).c_str(), name, REG_SZ, text.c_str(),
                         static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

LSTATUS enterClass(HKEY root, REFCLSID id, const wchar_t* name, const std::wstring& file) {
  const std::wstring server = serverKey(id);
  LSTATUS status = writeText(root, classKey(id), nullptr, name);
  if (status == ERROR_SUCCESS) status = writeText(root, server, nullptr, file);
  if (status == ERROR_SUCCESS) status = writeText(root, server, L"ThreadingModel", L"Apartment");
  return status;
}

/// Whether the class stands there with that file as its server.
bool isServedBy(HKEY root, const std::wstring& server, const std::wstring& file) {
  std::wstring found(file.size() + 2, L'\0');
  auto size = static_cast<DWORD>(found.size() * sizeof(wchar_t));
  const LSTATUS status =
      RegGetValueW(root, server.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, found.data(), &size);
  return status == ERROR_SUCCESS && sameName(found.c_str(), file);
}

LSTATUS removeClass(HKEY root, REFCLSID id, const std::wstring& file) {
  if (!isServedBy(root, classesKey + serverKey(id), file)) return ERROR_SUCCESS;
  return RegDeleteTreeW(root, (classesKey + classKey(id)).c_str());
}

}  // namespace

HRESULT enterClasses() {
  const std::wstring file = clientFile();
  if (file.empty()) return HRESULT_FROM_WIN32(GetLastError());
  for (const auto& [id, name] : classes) {
    // Wine's COM looks up classes of the computer only; a user who may not enter them there is on
    // Windows, where the user's own do.
    LSTATUS status = enterClass(HKEY_LOCAL_MACHINE, id, name, file);
    if (status == ERROR_ACCESS_DENIED) status = enterClass(HKEY_CURRENT_USER, id, name, file);
    if (status != ERROR_SUCCESS) return HRESULT_FROM_WIN32(status);
  }
  return S_OK;
}

HRESULT removeClasses() {
  const std::wstring file = clientFile();
  if (file.empty()) return HRESULT_FROM_WIN32(GetLastError());
  for (const auto& [id, name] : classes) {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
      const LSTATUS status = removeClass(root, id, file);
      if (status != ERROR_SUCCESS) return HRESULT_FROM_WIN32(status);
    }
  }
  return S_OK;
}

}  // namespace wb
