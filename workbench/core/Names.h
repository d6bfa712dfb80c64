#pragma once

#include <windows.h>

#include "core/Text.h"

namespace wb {

/// True if `address` lies in the image of `module`.
bool isInModule(HMODULE module, const void* address);

/// True if the object's class is implemented in `module`: its table of virtual functions is there.
template <class Object>
bool isOfModule(HMODULE module, const Object* object) {
  return object && isInModule(module, *reinterpret_cast<const void* const*>(object));
}

}  // namespace wb
