#pragma once

#include <string>

#include "unit/FakeObject.h"
#include "vault/VaultInterfaces.h"

/// The client's main object, which has nothing but words for errors.
class FakeMain : public FakeDual<VaultClient, VaultClientLegacy> {
 public:
  STDMETHODIMP login(BSTR, long) override { return E_NOTIMPL; }
  STDMETHODIMP vaultNameFromPath(BSTR, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP fileFromPath(BSTR, VaultFolder**, VaultFile**) override { return E_NOTIMPL; }
  STDMETHODIMP fileFromPath(BSTR, VaultFolderLegacy**, VaultFileLegacy**) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP rootFolderPath(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP clientVersion(long*, long*) override { return E_NOTIMPL; }
  STDMETHODIMP errorText(long, long, BSTR* out) override {
    ++asked;
    *out = SUCCEEDED(result) ? SysAllocString(words) : nullptr;
    return result;
  }

  static void reset() {
    asked = 0;
    result = S_OK;
    words = L"The client's words.";
  }

  static inline int asked = 0;
  static inline HRESULT result = S_OK;
  static inline const wchar_t* words = nullptr;
};

/// The text service; how it answers is said by its static members.
class FakeTexts : public FakeDual<VaultTextService> {
 public:
  FakeTexts() { ++made; }

  STDMETHODIMP text(long number, BSTR* out) override {
    *out = nullptr;
    if (SUCCEEDED(textResult) && answer) {
      *out = SysAllocString((answer + std::to_wstring(number)).c_str());
    }
    return textResult;
  }
  STDMETHODIMP sectionText(long, BSTR key, BSTR* out) override {
    *out = answer ? SysAllocString(*answer ? key : L"") : nullptr;
    return textResult;
  }
  STDMETHODIMP open(BSTR product, BSTR section) override {
    opened = std::wstring(product) + L";" + section;
    return openResult;
  }

  static void reset() {
    made = 0;
    textResult = openResult = S_OK;
    answer = L"text ";
  }

  static inline int made = 0;
  static inline HRESULT textResult = S_OK;
  static inline HRESULT openResult = S_OK;
  static inline const wchar_t* answer = L"text ";
  static inline std::wstring opened;
};
