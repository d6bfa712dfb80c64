#pragma once

#include <windows.h>

#include <oleauto.h>

#include <new>
#include <string>
#include <string_view>

namespace wb {

/// A new BSTR, the caller's. Raises std::bad_alloc.
inline BSTR newBstr(std::wstring_view text) {
  const BSTR made = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (!made) throw std::bad_alloc();
  return made;
}

/// The text of a BSTR; a null one is an empty text.
inline std::wstring textOf(BSTR text) {
  return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

}  // namespace wb
