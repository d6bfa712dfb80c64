#pragma once

#include <string>
#include <string_view>

namespace wb {

/// Wide text as UTF-8 and back; what isn't valid comes out as the replacement character.
std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view text);

}  // namespace wb
