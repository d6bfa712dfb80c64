#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wb {

/// A line of text as it is seen: with the signs that "%%c", "%%d", "%%p" and "%%nnn" stand for.
std::wstring shownText(std::wstring_view text);

/// The lines of multi-line text, without the codes for its looks.
std::vector<std::wstring> shownLines(std::wstring_view text);

}  // namespace wb
