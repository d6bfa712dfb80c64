#pragma once

#include <windows.h>

#include <string_view>

namespace wb {

/// Height in pixels of the font's em square at which text is measured and made.
constexpr int fontEm = 256;

/// The font that drawings are lettered in, of that height. It lives as long as the process.
HFONT drawingFont();
/// Pixels from the base line to the top of a capital in it.
double capitalHeight();
/// How wide a text is, in heights of its capitals.
double textWidth(std::wstring_view text);

}  // namespace wb
