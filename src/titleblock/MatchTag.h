#pragma once

#include "foundation/CString.h"

namespace tessaro {

/// Whether an attribute's tag matches a mapping's pattern, ignoring case. A star at the beginning
/// or the end matches any text; a doubled star there matches a star.
bool MatchTag(const wchar_t* tag, const CString& pattern);

}  // namespace tessaro
