#include "client/Position.h"

#include "client/ClientCall.h"

namespace wb {

STDMETHODIMP PositionPart::isNull(LONG* result) {
  return ClientCall(L"VaultPosition.isNull").out(result).runVoid([&] {
    *result = state.index >= state.count ? 1 : 0;
  });
}

size_t PositionPart::advance(VaultPosition* position, size_t count) {
  const auto part = dynamic_cast<PositionPart*>(position);
  if (!part || part->state.count != count) throw ClientFailure(E_INVALIDARG);
  if (part->state.index >= count) throw ClientFailure(E_QVT_END_OF_LIST);
  return part->state.index++;
}

Owned<VaultPosition> firstOf(size_t count) {
  return make<PositionObject, VaultPosition>(L"VaultPosition", PositionState{0, count});
}

}  // namespace wb
