#include "client/CardVariable.h"

#include "client/Bstr.h"
#include "client/ClientCall.h"
#include "client/Position.h"
#include "client/Results.h"

namespace wb {
namespace {

const struct {
  const wchar_t* name;
  VARTYPE type;
} valueTypes[] = {
    {L"text", VT_BSTR}, {L"integer", VT_I4}, {L"real", VT_R8},     {L"date", VT_DATE},
    {L"flag", VT_BOOL}, {L"null", VT_NULL},  {L"empty", VT_EMPTY}, {L"error", VT_ERROR},
};

VARTYPE typeNamed(const std::wstring& name) {
  for (const auto& entry : valueTypes) {
    if (name == entry.name) return entry.type;
  }
  throw ClientFailure(E_QVT_INVALID_TYPE);
}

/// The stored text as a value of its type. Numbers and dates are stored as English writes them,
/// whatever language the computer is set to.
void makeValue(const CardValue& stored, VARIANT* value) {
  const VARTYPE type = typeNamed(stored.type);
  VARIANT made;
  VariantInit(&made);
  if (type == VT_NULL || type == VT_EMPTY || type == VT_ERROR) {
    V_VT(&made) = type;
    if (type == VT_ERROR) V_ERROR(&made) = DISP_E_PARAMNOTFOUND;
  } else {
    V_VT(&made) = VT_BSTR;
    V_BSTR(&made) = newBstr(stored.text);
    constexpr LCID english = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    const HRESULT changed = VariantChangeTypeEx(&made, &made, english, 0, type);
    if (FAILED(changed)) {
      VariantClear(&made);
      throw ClientFailure(changed);
    }
  }
  *value = made;
}

class MappingPart : public Dual<VaultAttributeMapping> {
 public:
  explicit MappingPart(const CardMapping& mapping) : mapping(mapping) {}

  STDMETHODIMP blockName(BSTR* result) override {
    return ClientCall(L"VaultAttributeMapping.blockName").out(result).runVoid([&] {
      *result = newBstr(mapping.block);
    });
  }

  STDMETHODIMP attributeTag(BSTR* result) override {
    return ClientCall(L"VaultAttributeMapping.attributeTag").out(result).runVoid([&] {
      *result = newBstr(mapping.tag);
    });
  }

 private:
  CardMapping mapping;
};

class VariablePart : public Dual<VaultCardVariable> {
 public:
  explicit VariablePart(const CardVariable& variable) : variable(variable) {}

  STDMETHODIMP valueForConfiguration(BSTR configuration, VARIANT* value) override {
    return ClientCall(L"VaultCardVariable.valueForConfiguration")
        .with(L"configuration", configuration)
        .out(value)
        .runVoid([&] {
          const auto found = variable.values.find(textOf(configuration));
          // What was never filled in is the database's null.
          makeValue(found == variable.values.end() ? CardValue{L"null", {}} : found->second, value);
        });
  }

  STDMETHODIMP firstMapping(VaultPosition** position) override {
    return ClientCall(L"VaultCardVariable.firstMapping").out(position).runVoid([&] {
      *position = firstOf(this, variable.mappings.size()).release();
    });
  }

  STDMETHODIMP nextMapping(VaultPosition* position, VaultAttributeMapping** mapping) override {
    return ClientCall(L"VaultCardVariable.nextMapping")
        .object(L"position", position)
        .out(mapping)
        .runVoid([&] {
          const size_t index = PositionPart::advance(position, this);
          const CardMapping& found = variable.mappings[index];
          *mapping =
              make<ComObject<MappingPart>, VaultAttributeMapping>(
                  namedLabel(L"VaultAttributeMapping", found.block + L"." + found.tag), found)
                  .release();
        });
  }

 private:
  CardVariable variable;
};

}  // namespace

Owned<VaultCardVariable> cardVariableObject(const CardVariable& variable) {
  return make<ComObject<VariablePart>, VaultCardVariable>(
      namedLabel(L"VaultCardVariable", variable.name), variable);
}

}  // namespace wb
