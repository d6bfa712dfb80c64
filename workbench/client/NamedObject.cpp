#include "client/NamedObject.h"

#include <cstdint>
#include <cwctype>

#include "client/Bstr.h"
#include "client/ClientCall.h"

namespace wb {

STDMETHODIMP NamedPart::id(LONG* result) {
  return ClientCall(L"VaultObject.id").out(result).runVoid([&] { *result = state.id; });
}

STDMETHODIMP NamedPart::name(BSTR* result) {
  return ClientCall(L"VaultObject.name").out(result).runVoid([&] {
    *result = newBstr(state.name);
  });
}

Owned<VaultObject> namedObject(const std::wstring& kind, const NamedState& state) {
  return make<ComObject<NamedPart>, VaultObject>(namedLabel(kind, state.name), state);
}

long idOfName(const std::wstring& name) {
  std::uint32_t hash = 2166136261u;  // FNV-1a
  for (const wchar_t letter : name) {
    hash = (hash ^ static_cast<std::uint32_t>(std::towlower(letter))) * 16777619u;
  }
  return static_cast<long>(hash & 0x7FFFFFFFu);
}

}  // namespace wb
