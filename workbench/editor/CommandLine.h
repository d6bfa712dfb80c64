#pragma once

#include <string>
#include <string_view>

namespace wb {

/// Writes on the command line, on the transcript as `prompt`.
void commandLineSays(std::wstring_view text);

}  // namespace wb
