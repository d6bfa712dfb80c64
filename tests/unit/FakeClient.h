#pragma once

#include <string>

#include "unit/FakeObject.h"
#include "vault/VaultInterfaces.h"

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
