#pragma once

#include <windows.h>

#include <string_view>

namespace wb {

/// Equal ignoring case, as the editor compares names and Windows compares file names.
inline bool sameName(std::wstring_view a, std::wstring_view b) {
  return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                              static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

/// True if `address` lies in the image of `module`.
bool isInModule(HMODULE module, const void* address);

/// True if the object's class is implemented in `module`: its table of virtual functions is there.
template <class Object>
bool isOfModule(HMODULE module, const Object* object) {
  return object && isInModule(module, *reinterpret_cast<const void* const*>(object));
}

}  // namespace wb
