#pragma once

#include "foundation/CString.h"

namespace tessaro {

/// Whether an attribute's tag matches a mapping's pattern, ignoring case. A star in front and a
/// star at the end stand for any text; a doubled one for the star itself.
bool MatchTag(const CString& tag, const CString& pattern);

}  // namespace tessaro
