#include "view/Font.h"

#include <map>

namespace wb {

namespace {

constexpr wchar_t face[] = L"Tahoma";

HFONT makeFont() {
  return CreateFontW(-fontEm, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                     OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, VARIABLE_PITCH, face);
}

/// A context with the font in it, to measure.
HDC measuringContext() {
  static const HDC context = [] {
    const HDC fresh = CreateCompatibleDC(nullptr);
    SelectObject(fresh, drawingFont());
    return fresh;
  }();
  return context;
}

}  // namespace

HFONT drawingFont() {
  static const HFONT font = makeFont();
  return font;
}

double capitalHeight() {
  static const double height = [] {
    GLYPHMETRICS metrics{};
    const MAT2 unchanged{{0, 1}, {0, 0}, {0, 0}, {0, 1}};
    const DWORD size =
        GetGlyphOutlineW(measuringContext(), L'H', GGO_METRICS, &metrics, 0, nullptr, &unchanged);
    return size == GDI_ERROR ? fontEm * 0.72 : static_cast<double>(metrics.gmptGlyphOrigin.y);
  }();
  return height;
}

double textWidth(std::wstring_view text) {
  static std::map<wchar_t, int> widths;
  int sum = 0;
  for (const wchar_t c : text) {
    const auto [at, fresh] = widths.try_emplace(c, 0);
    if (fresh) GetCharWidth32W(measuringContext(), c, c, &at->second);
    sum += at->second;
  }
  return sum / capitalHeight();
}

}  // namespace wb
