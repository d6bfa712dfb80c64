#pragma once

#include <string>

namespace tessaro {

/// The module's wide string.
using CString = std::wstring;

/// Compares two texts character by character, ignoring case, without regard to any language, as
/// Windows compares file names (CompareStringOrdinal).
bool equalIgnoringCase(const CString& left, const CString& right);

/// Converts a text that may be null. COM returns null strings for empty texts.
/// @return the text, empty for null
inline CString textOf(const wchar_t* text) { return text != nullptr ? CString(text) : CString(); }

}  // namespace tessaro
