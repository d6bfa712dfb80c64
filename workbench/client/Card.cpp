// The data card of a file, its variables and their mappings.

#include <oleauto.h>

#include <algorithm>
#include <map>
#include <new>
#include <vector>

#include "client/ClientCall.h"
#include "client/Objects.h"

namespace wb {
namespace {

VARTYPE typeNamed(const std::wstring& name) {
  static const std::map<std::wstring, VARTYPE> types = {
      {L"text", VT_BSTR}, {L"integer", VT_I4}, {L"real", VT_R8},     {L"date", VT_DATE},
      {L"flag", VT_BOOL}, {L"null", VT_NULL},  {L"empty", VT_EMPTY}, {L"error", VT_ERROR},
  };
  const auto found = types.find(name);
  if (found == types.end()) throw ClientFailure(E_QVT_INVALID_TYPE);
  return found->second;
}

/// The stored text as a value of its type. Numbers and dates are stored as English writes them,
/// whatever language the computer is set to.
VARIANT makeValue(const CardValue& stored) {
  const VARTYPE type = typeNamed(stored.type);
  VARIANT made = {};
  V_VT(&made) = type;
  if (type == VT_ERROR) V_ERROR(&made) = DISP_E_PARAMNOTFOUND;
  if (type == VT_NULL || type == VT_EMPTY || type == VT_ERROR) return made;
  V_VT(&made) = VT_BSTR;
  V_BSTR(&made) = newBstr(stored.text);
  constexpr LCID english = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
  const HRESULT changed = VariantChangeTypeEx(&made, &made, english, 0, type);
  if (SUCCEEDED(changed)) return made;
  VariantClear(&made);
  throw ClientFailure(changed);
}

struct MappingPart : Dual<VaultAttributeMapping, CardMapping> {
  STDMETHODIMP blockName(BSTR* result) override {
    return call().result(result, [&] { return state.block; });
  }

  STDMETHODIMP attributeTag(BSTR* result) override {
    return call().result(result, [&] { return state.tag; });
  }
};

/// A variable, as it was when the card was read.
struct VariablePart : Dual<VaultCardVariable, CardVariable> {
  STDMETHODIMP valueForConfiguration(BSTR configuration, VARIANT* value) override {
    return call().with(L"configuration", configuration).result(value, [&] {
      const auto found = state.values.find(textOf(configuration));
      // What was never filled in is the database's null.
      return makeValue(found == state.values.end() ? CardValue{L"null", {}} : found->second);
    });
  }

  STDMETHODIMP firstMapping(VaultPosition** position) override {
    return call().result(position, [&] { return firstPosition(this, state.mappings.size()); });
  }

  STDMETHODIMP nextMapping(VaultPosition* position, VaultAttributeMapping** mapping) override {
    return call().object(L"position", position).result(mapping, [&] {
      const CardMapping& found = state.mappings[advance(position, this)];
      return make<VaultAttributeMapping, MappingPart>(
          namedLabel(L"VaultAttributeMapping", found.block + L"." + found.tag), found);
    });
  }
};

struct CardDataPart : Dual<VaultCardData, VaultItem> {
  STDMETHODIMP cardVariables(LONG folderId, LONG* count, VaultCardVariable*** variables) override {
    return call()
        .with(L"folder", folderId)
        .out(count, L"count")
        .out(variables, L"variables")
        .run([&] {
          const StoredFile& file = storedFile(state.path);
          if (folderId != store().folderIdOf(state.path)) {
            throw ClientFailure(E_QVT_FOLDER_NOT_FOUND);
          }
          std::vector<Owned<VaultCardVariable>> made;
          made.reserve(file.card.size());
          for (const CardVariable& variable : file.card) {
            made.push_back(make<VaultCardVariable, VariablePart>(
                namedLabel(L"VaultCardVariable", variable.name), variable));
          }
          *variables = static_cast<VaultCardVariable**>(
              CoTaskMemAlloc(sizeof(VaultCardVariable*) * std::max<size_t>(made.size(), 1)));
          if (!*variables) throw std::bad_alloc();
          std::transform(made.begin(), made.end(), *variables,
                         [](Owned<VaultCardVariable>& variable) { return variable.release(); });
          *count = static_cast<LONG>(made.size());
        });
  }
};

}  // namespace

Owned<VaultCardData> cardDataObject(const VaultItem& file) {
  return make<VaultCardData, CardDataPart>(namedLabel(L"VaultCardData", file.name), file);
}

}  // namespace wb
