#include "vault/CardData.h"

#include "vault/CheckedCall.h"

namespace tessaro {

VaultCardDataPtr cardDataOf(VaultFileLegacy* file) {
  VaultCardDataPtr card;
  check(required(file).cardData(_bstr_t(L""), &card), *file);
  return card;
}

CardVariables::CardVariables(VaultCardData* card, long folderId) {
  check(required(card).cardVariables(folderId, &count_, &variables), *card);
  if (!variables) count_ = 0;
}

CardVariables::~CardVariables() {
  for (long index = 0; index < count_; ++index) {
    if (variables[index]) variables[index]->Release();
  }
  CoTaskMemFree(variables);
}

void forEachMapping(VaultCardVariable* variable,
                    const std::function<void(VaultAttributeMapping*)>& visit) {
  VaultPositionPtr position;
  check(required(variable).firstMapping(&position), *variable);
  for (;;) {
    long ended = 0;
    check(required(position.GetInterfacePtr()).isNull(&ended), *position.GetInterfacePtr());
    if (ended) return;
    VaultAttributeMappingPtr mapping;
    check(variable->nextMapping(position, &mapping), *variable);
    visit(mapping);
  }
}

CString blockNameOf(VaultAttributeMapping* mapping) {
  _bstr_t name;
  check(required(mapping).blockName(name.GetAddress()), *mapping);
  return textOf(name);
}

CString attributeTagOf(VaultAttributeMapping* mapping) {
  _bstr_t tag;
  check(required(mapping).attributeTag(tag.GetAddress()), *mapping);
  return textOf(tag);
}

_variant_t valueFor(VaultCardVariable* variable, const _bstr_t& configuration) {
  _variant_t value;
  check(required(variable).valueForConfiguration(configuration, &value), *variable);
  return value;
}

}  // namespace tessaro
