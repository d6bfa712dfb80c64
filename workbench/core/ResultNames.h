#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace wb {

/// A result's symbolic name, or its number if it has none.
std::wstring resultName(HRESULT result);

/// The result of a symbolic name or of a number, hexadecimal behind 0x.
std::optional<HRESULT> resultFromName(std::wstring_view name);

}  // namespace wb
