#include "view/DrawingView.h"
#include "core/Lists.h"

#include <windowsx.h>

#include "core/Text.h"
#include "database/Drawing.h"
#include "view/Builder.h"

namespace wb {

namespace {

constexpr wchar_t windowClass[] = L"WorkbenchDrawingView";
constexpr double zoomStep = 1.25;

POINT positionOf(LPARAM lParam) { return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; }

/// A picture in memory that takes the place of a window's while it is painted.
class BackBuffer {
 public:
  BackBuffer(HDC target, SIZE size)
      : target(target),
        size(size),
        context(CreateCompatibleDC(target)),
        bitmap(CreateCompatibleBitmap(target, size.cx, size.cy)),
        before(SelectObject(context, bitmap)) {}
  BackBuffer(const BackBuffer&) = delete;
  BackBuffer& operator=(const BackBuffer&) = delete;
  ~BackBuffer() {
    SelectObject(context, before);
    DeleteObject(bitmap);
    DeleteDC(context);
  }
  HDC handle() const { return context; }
  void show() const { BitBlt(target, 0, 0, size.cx, size.cy, context, 0, 0, SRCCOPY); }

 private:
  const HDC target;
  const SIZE size;
  const HDC context;
  const HBITMAP bitmap;
  const HGDIOBJ before;
};

}  // namespace

bool DrawingView::create(HWND parent) {
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  WNDCLASSEXW description = {};
  description.cbSize = sizeof description;
  description.style = CS_DBLCLKS;
  description.lpfnWndProc = procedure;
  description.hInstance = instance;
  description.hCursor = LoadCursorW(nullptr, IDC_CROSS);
  description.lpszClassName = windowClass;
  if (!RegisterClassExW(&description) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) return false;
  window = CreateWindowExW(0, windowClass, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent, nullptr,
                           instance, this);
  return window != nullptr;
}

void DrawingView::destroy() {
  if (window) DestroyWindow(window);
  window = nullptr;
  shownDescription.clear();
  show(nullptr);
}

void DrawingView::show(const Drawing* shown) {
  if (drawing == shown) return;
  drawing = shown;
  revision.reset();
  picked.clear();
  if (window) InvalidateRect(window, nullptr, FALSE);
}

void DrawingView::refresh(std::vector<AcDbObjectId> nowPicked) {
  if (drawing && revision == drawing->revision() && picked == nowPicked) return;
  picked = std::move(nowPicked);
  if (window) InvalidateRect(window, nullptr, FALSE);
}

const DisplayList& DrawingView::currentList() {
  if (!drawing || drawing->closed()) {
    if (revision || !list.items.empty()) list = {};
    revision.reset();
    layout.clear();
    return list;
  }
  if (revision == drawing->revision()) return list;
  const bool same = revision && layout == drawing->currentLayout();
  list = displayListOf(*drawing);
  revision = drawing->revision();
  layout = drawing->currentLayout();
  // A person's own view of the layout stays.
  if (!same || fitted) fit();
  return list;
}

std::wstring DrawingView::description() const {
  std::wstring text = layout;
  const wchar_t* separator = L"   |   not drawn: ";
  for (const auto& [type, count] : list.leftOut) {
    text += separator + std::to_wstring(count) + L' ' + fromUtf8(type);
    separator = L", ";
  }
  return text;
}

SIZE DrawingView::size() const {
  RECT client{};
  GetClientRect(window, &client);
  return {std::max(client.right, 1L), std::max(client.bottom, 1L)};
}

void DrawingView::paintNow() {
  PAINTSTRUCT area;
  const HDC context = BeginPaint(window, &area);
  const BackBuffer buffer(context, size());
  paint(buffer.handle(), size(), currentList(), camera, picked);
  buffer.show();
  if (onShown && shownDescription != description()) onShown(shownDescription = description());
  EndPaint(window, &area);
}

void DrawingView::fit() {
  fitted = true;
  camera = Camera::fitting(list.extents, size());
  InvalidateRect(window, nullptr, FALSE);
}

void DrawingView::zoom(POINT at, double factor) {
  const Point fixed = camera.toDrawing(at, size());
  camera.scale *= factor;
  camera.centre = fixed + (1 / factor) * (camera.centre - fixed);
  fitted = false;
  InvalidateRect(window, nullptr, FALSE);
}

void DrawingView::pan(POINT from, POINT to) {
  camera.centre = camera.centre + camera.toDrawing(from, size()) - camera.toDrawing(to, size());
  grabbed = to;
  fitted = false;
  InvalidateRect(window, nullptr, FALSE);
}

AcDbObjectId DrawingView::referenceUnder(POINT at) {
  const DisplayList::Reference* hit = referenceAt(at, size(), currentList(), camera);
  return hit ? hit->id : AcDbObjectId();
}

void DrawingView::rightClick(POINT at) {
  const AcDbObjectId hit = referenceUnder(at);
  const bool known = contains(picked, hit);
  if (onClick && !hit.isNull() && !known) onClick(hit);
  ClientToScreen(window, &at);
  if (onMenu) onMenu(at);
}

LRESULT DrawingView::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      paintNow();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      if (fitted) fit();
      return 0;
    case WM_MOUSEWHEEL: {
      POINT at = positionOf(lParam);
      ScreenToClient(window, &at);
      zoom(at, GET_WHEEL_DELTA_WPARAM(wParam) > 0 ? zoomStep : 1 / zoomStep);
      return 0;
    }
    case WM_MBUTTONDOWN:
      grabbed = positionOf(lParam);
      SetCapture(window);
      return 0;
    case WM_MOUSEMOVE:
      if (grabbed) pan(*grabbed, positionOf(lParam));
      return 0;
    case WM_MBUTTONUP:
      grabbed.reset();
      ReleaseCapture();
      return 0;
    case WM_MBUTTONDBLCLK:
      fit();
      return 0;
    case WM_LBUTTONDOWN:
      if (onClick) onClick(referenceUnder(positionOf(lParam)));
      return 0;
    case WM_RBUTTONUP:
      rightClick(positionOf(lParam));
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

LRESULT CALLBACK DrawingView::procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    static_cast<DrawingView*>(creation->lpCreateParams)->window = handle;
  }
  auto* self = reinterpret_cast<DrawingView*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
  return self && self->window ? self->handle(message, wParam, lParam)
                              : DefWindowProcW(handle, message, wParam, lParam);
}

}  // namespace wb
