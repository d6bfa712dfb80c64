#pragma once

#include <memory>

#include "client/ComObject.h"
#include "client/Results.h"
#include "TessaroClient.h"

namespace wb {

/// A cursor over a list of known length.
struct PositionState {
  const void* list = nullptr;  ///< the one that it was made for
  size_t index = 0;
  size_t count = 0;
};

class PositionPart : public Dual<VaultPosition> {
 public:
  explicit PositionPart(const PositionState& state) : state(state) {}

  STDMETHODIMP isNull(LONG* result) override;

  /// Takes the element at the cursor and moves the cursor on. Raises ClientFailure: E_INVALIDARG
  /// for a position that isn't the client's or belongs to another list, E_QVT_END_OF_LIST past the
  /// last element.
  static size_t advance(VaultPosition* position, const void* list);

 private:
  PositionState state;
};

using PositionObject = ComObject<PositionPart>;

/// A cursor on the first element of a list.
Owned<VaultPosition> firstOf(const void* list, size_t count);

}  // namespace wb
