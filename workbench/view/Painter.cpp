#include "view/Painter.h"
#include "core/Lists.h"

#include "view/Font.h"
#include "view/Projection.h"

namespace wb {

namespace {

using Item = DisplayList::Item;
using Kind = DisplayList::Kind;

constexpr COLORREF ground = RGB(33, 40, 48);
constexpr COLORREF pickedColor = RGB(0, 127, 255);
// Pixels. GDI takes lines of any length, but fills an area row by row.
constexpr double farthest = 5e7;
constexpr double farthestOfArea = 30000;
constexpr double smallestText = 2.5;  // pixels; what is smaller is a stroke
constexpr int gripSize = 4;           // pixels from its middle to its edge

/// Restores a device context's state at its end.
class Saved {
 public:
  explicit Saved(HDC context) : context(context), state(SaveDC(context)) {}
  Saved(const Saved&) = delete;
  Saved& operator=(const Saved&) = delete;
  ~Saved() { RestoreDC(context, state); }

 private:
  const HDC context;
  const int state;
};

HFONT labelFont() {
  static const HFONT font = CreateFontW(-Projection::labelHeight, 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                                        FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS,
                                        ANTIALIASED_QUALITY, VARIABLE_PITCH, L"Tahoma");
  return font;
}

class Painter {
 public:
  Painter(HDC context, SIZE window, const DisplayList& list, const Camera& camera)
      : context(context),
        window(window),
        list(list),
        camera(camera),
        projection(list, camera, window) {
    SelectObject(context, GetStockObject(DC_PEN));
    SelectObject(context, GetStockObject(DC_BRUSH));
    SetBkMode(context, TRANSPARENT);
    SetPolyFillMode(context, WINDING);
  }

  void fillGround() const {
    const RECT all{0, 0, window.cx, window.cy};
    SetDCBrushColor(context, ground);
    FillRect(context, &all, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
  }

  void draw(const Item& item) {
    const std::vector<Point>& outline = projection.outline(item);
    if (!projection.seen()) return;
    pixels.clear();
    const double limit = item.kind == Kind::area ? farthestOfArea : farthest;
    for (const Point& p : outline) {
      pixels.push_back({std::lround(std::clamp(p.x, -limit, limit)),
                        std::lround(std::clamp(p.y, -limit, limit))});
    }
    SetDCPenColor(context, item.color);
    SetDCBrushColor(context, item.color);
    switch (item.kind) {
      case Kind::line:
      case Kind::arc:
        strokes();
        break;
      case Kind::area:
        Polygon(context, pixels.data(), static_cast<int>(pixels.size()));
        break;
      case Kind::dot:
        Rectangle(context, pixels[0].x - 1, pixels[0].y - 1, pixels[0].x + 2, pixels[0].y + 2);
        break;
      case Kind::text:
        drawText(item);
        break;
      case Kind::label:
        drawLabel(item);
        break;
    }
  }

  void mark(const DisplayList::Reference& reference) {
    const Saved saved(context);
    const HPEN dotted = CreatePen(PS_DOT, 1, pickedColor);
    const HGDIOBJ before = SelectObject(context, dotted);
    for (size_t at = reference.first; at < reference.end; ++at) {
      const Item& item = list.items[at];
      if (item.kind != Kind::line && item.kind != Kind::arc) continue;
      Item marked = item;
      marked.color = pickedColor;
      draw(marked);
    }
    SelectObject(context, before);
    DeleteObject(dotted);
    const Point at = camera.toWindow(reference.place, window);
    const auto x = static_cast<int>(at.x), y = static_cast<int>(at.y);
    SetDCBrushColor(context, pickedColor);
    SetDCPenColor(context, RGB(255, 255, 255));
    Rectangle(context, x - gripSize, y - gripSize, x + gripSize + 1, y + gripSize + 1);
  }

  void drawRemarks() const {
    SelectObject(context, labelFont());
    SetTextColor(context, RGB(150, 160, 170));
    int y = window.cy - Projection::labelHeight - 8;
    for (const std::wstring& remark : list.remarks) {
      TextOutW(context, 8, y, remark.c_str(), static_cast<int>(remark.size()));
      y -= Projection::labelHeight + 2;
    }
  }

 private:
  void strokes() const { Polyline(context, pixels.data(), static_cast<int>(pixels.size())); }

  // The font is made once; how it lies in the window is the transform's business.
  void drawText(const Item& item) {
    const Point* const p = &list.points[item.first];
    const Point along = camera.scale * p[1], up = camera.scale * p[2];
    if (length(up) < smallestText) {
      MoveToEx(context, pixels[0].x, pixels[0].y, nullptr);
      LineTo(context, pixels[1].x, pixels[1].y);
      return;
    }
    const Saved saved(context);
    const Point origin = camera.toWindow(p[0], window);
    const double unit = 1 / capitalHeight();
    const XFORM place{static_cast<FLOAT>(along.x * unit), static_cast<FLOAT>(-along.y * unit),
                      static_cast<FLOAT>(-up.x * unit),   static_cast<FLOAT>(up.y * unit),
                      static_cast<FLOAT>(origin.x),       static_cast<FLOAT>(origin.y)};
    SetGraphicsMode(context, GM_ADVANCED);
    SetWorldTransform(context, &place);
    SelectObject(context, drawingFont());
    SetTextAlign(context, TA_BASELINE | TA_LEFT);
    SetTextColor(context, item.color);
    const std::wstring& text = list.texts[item.text];
    TextOutW(context, 0, 0, text.c_str(), static_cast<int>(text.size()));
  }

  void drawLabel(const Item& item) {
    const Saved saved(context);
    const RECT frame = projection.label(item);
    const HPEN dashed = CreatePen(PS_DASH, 1, item.color);
    SelectObject(context, dashed);
    strokes();
    SelectObject(context, labelFont());
    SetTextColor(context, item.color);
    const std::wstring& text = list.texts[item.text];
    TextOutW(context, frame.left + Projection::labelMargin.cx,
             frame.top + Projection::labelMargin.cy, text.c_str(), static_cast<int>(text.size()));
    SelectObject(context, GetStockObject(DC_PEN));
    DeleteObject(dashed);
  }

  const HDC context;
  const SIZE window;
  const DisplayList& list;
  const Camera& camera;
  Projection projection;
  std::vector<POINT> pixels;
};

}  // namespace

void paint(HDC context, SIZE window, const DisplayList& list, const Camera& camera,
           const std::vector<AcDbObjectId>& picked) {
  Painter painter(context, window, list, camera);
  painter.fillGround();
  for (const Item& item : list.items) painter.draw(item);
  for (const DisplayList::Reference& reference : list.references) {
    if (contains(picked, reference.id)) {
      painter.mark(reference);
    }
  }
  painter.drawRemarks();
}

}  // namespace wb
