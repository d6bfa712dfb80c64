#pragma once

#include <string>

namespace tessaro {

/// The module's wide string.
using CString = std::wstring;

/// Whether the texts differ in case at most, letter by letter and in no language in particular; how
/// Windows compares the names of files (CompareStringOrdinal).
bool equalIgnoringCase(const CString& left, const CString& right);

/// The text, empty for null. What COM hands out as a string may be null where it means no text.
inline CString textOf(const wchar_t* text) { return text != nullptr ? CString(text) : CString(); }

}  // namespace tessaro
