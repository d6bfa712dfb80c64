#include "client/Position.h"

#include "client/ClientCall.h"

namespace wb {

STDMETHODIMP PositionPart::isNull(LONG* result) {
  return ClientCall(L"VaultPosition.isNull").out(result).runVoid([&] {
    *result = state.index >= state.count ? 1 : 0;
  });
}

size_t PositionPart::advance(VaultPosition* position, const void* list) {
  const auto part = dynamic_cast<PositionPart*>(position);
  if (!part || part->state.list != list) throw ClientFailure(E_INVALIDARG);
  if (part->state.index >= part->state.count) throw ClientFailure(E_QVT_END_OF_LIST);
  return part->state.index++;
}

Owned<VaultPosition> firstOf(const void* list, size_t count) {
  return make<PositionObject, VaultPosition>(L"VaultPosition", PositionState{list, 0, count});
}

}  // namespace wb
