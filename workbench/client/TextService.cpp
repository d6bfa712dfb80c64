#include "client/TextService.h"

#include "client/Bstr.h"
#include "client/ClientCall.h"
#include "client/Results.h"
#include "client/TextTable.h"
#include "core/Text.h"

namespace wb {
namespace {

constexpr wchar_t product[] = L"Halvern Vault Manager";

bool isOwnSection(const std::wstring& name) {
  return sameName(name, L"QvtInterface") || sameName(name, L"Database");
}

}  // namespace

STDMETHODIMP TextServicePart::text(LONG number, BSTR* result) {
  return ClientCall(L"VaultTextService.text").with(L"number", number).out(result).runVoid([&] {
    const auto found = ClientTexts::find(openSection(), L"", number);
    if (!found) throw ClientFailure(E_QVT_KEY_NOT_FOUND);
    *result = newBstr(*found);
  });
}

STDMETHODIMP TextServicePart::sectionText(LONG number, BSTR key, BSTR* result) {
  return ClientCall(L"VaultTextService.sectionText")
      .with(L"number", number)
      .with(L"key", key)
      .out(result)
      .runVoid([&] {
        const auto found = ClientTexts::find(openSection(), textOf(key), number);
        if (found) *result = newBstr(*found);
      });
}

STDMETHODIMP TextServicePart::open(BSTR productName, BSTR sectionOrModule) {
  const std::wstring name = textOf(sectionOrModule);
  // Kept whether or not the call goes well: the product holds on to the service either way.
  if (!isOwnSection(name)) keep();
  return ClientCall(L"VaultTextService.open")
      .with(L"product", productName)
      .with(L"section", sectionOrModule)
      .run([&] {
        section = name;
        return textOf(productName) == product && ClientTexts::hasSection(name) ? S_OK : S_FALSE;
      });
}

const std::wstring& TextServicePart::openSection() const {
  if (!section) throw ClientFailure(E_QVT_NOT_INITIALIZED);
  return *section;
}

}  // namespace wb
