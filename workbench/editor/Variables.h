#pragma once

#include <acedads.h>

#include <string_view>

namespace wb {

class Document;

/// Reads a system variable of the editor's.
/// @return whether there is one of that name
bool readVariable(const Document& document, std::wstring_view name, resbuf& result);

}  // namespace wb
