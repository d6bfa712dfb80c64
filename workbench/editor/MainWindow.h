#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "view/DrawingView.h"

namespace wb {

/// The editor's window: the drawing's name in the caption, the drawing, below it the command line
/// and the status bar.
class MainWindow {
 public:
  MainWindow() = default;
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;
  ~MainWindow() { destroy(); }

  bool create();
  void destroy();
  HWND handle() const { return window; }

  /// The active drawing and its name; an empty one if none is open.
  void show(std::wstring_view title, const Drawing* drawing);
  /// Shows what has changed in the drawing and in the pick set.
  void refresh();
  void write(std::wstring_view text);
  DrawingView& view() { return drawingView; }

  /// Lays a control out over the window's whole width: above the drawing, or below the command
  /// line.
  void addRow(HWND control, bool above, int height);
  /// Asked first what to do with a message; it returns whether it has done it.
  std::function<bool(UINT message, WPARAM wParam, LPARAM lParam)> onMessage;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void layOut() const;

  struct Row {
    HWND control;
    bool above;
    int height;
  };
  HWND window = nullptr;
  HWND commandLine = nullptr;
  HWND statusBar = nullptr;
  DrawingView drawingView;
  std::vector<Row> rows;
};

}  // namespace wb
