#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "view/DisplayList.h"
#include "view/Painter.h"

namespace wb {

class Drawing;

/// The window that shows a drawing's current layout. The wheel zooms, the middle button pans, its
/// double click shows all.
class DrawingView {
 public:
  DrawingView() = default;
  DrawingView(const DrawingView&) = delete;
  DrawingView& operator=(const DrawingView&) = delete;
  ~DrawingView() { destroy(); }

  bool create(HWND parent);
  void destroy();
  HWND handle() const { return window; }

  /// Shows a drawing, which stays until another one is shown; null for none.
  void show(const Drawing* drawing);
  /// Shows what has changed since it was painted.
  void refresh(std::vector<AcDbObjectId> picked);
  /// Called with the shown layout and what isn't drawn of it, in words, when they have changed.
  std::function<void(const std::wstring&)> onShown;
  /// A click: on a reference, or on nothing (null). The right button doesn't click what is picked
  /// already, nor nothing.
  std::function<void(AcDbObjectId)> onClick;
  /// The right button is released there, on the screen; after the click.
  std::function<void(POINT)> onMenu;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  const DisplayList& currentList();
  std::wstring description() const;
  SIZE size() const;
  void paintNow();
  void zoom(POINT at, double factor);
  void pan(POINT from, POINT to);
  void fit();
  AcDbObjectId referenceUnder(POINT at);
  void rightClick(POINT at);

  HWND window = nullptr;
  const Drawing* drawing = nullptr;
  std::optional<unsigned> revision;  ///< that the list shows
  std::wstring layout;
  std::wstring shownDescription;
  DisplayList list;
  Camera camera;
  bool fitted = true;
  std::optional<POINT> grabbed;
  std::vector<AcDbObjectId> picked;
};

}  // namespace wb
