#pragma once

#include <windows.h>

#include <memory>

namespace wb {

struct ReleaseReference {
  void operator()(IUnknown* object) const { object->Release(); }
};

/// A reference that is given up at the end of the scope unless it is handed on.
template <class Interface>
using Owned = std::unique_ptr<Interface, ReleaseReference>;

}  // namespace wb
