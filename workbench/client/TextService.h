#pragma once

#include <optional>
#include <string>

#include "client/ComObject.h"
#include "TessaroClient.h"

namespace wb {

/// The client's string service: the texts of a product's module, or of a section of the client.
class TextServicePart : public Dual<VaultTextService> {
 public:
  struct State {};
  explicit TextServicePart(const State&) {}

  STDMETHODIMP text(LONG number, BSTR* result) override;
  STDMETHODIMP sectionText(LONG number, BSTR key, BSTR* result) override;
  STDMETHODIMP open(BSTR productName, BSTR sectionOrModule) override;

 protected:
  /// A product keeps the service of its module for its life.
  virtual void keep() = 0;

 private:
  const std::wstring& openSection() const;

  std::optional<std::wstring> section;
};

class TextServiceObject final : public ComObject<TextServicePart> {
 public:
  TextServiceObject() : ComObject(L"TextService", State()) {}

 protected:
  void keep() override { keepReferences(); }
};

}  // namespace wb
