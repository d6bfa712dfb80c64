#pragma once

#include <windows.h>

#include <string_view>

namespace wb {

/// The editor's window: the drawing's name in the caption, the command line below.
class MainWindow {
 public:
  MainWindow() = default;
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;
  ~MainWindow() { destroy(); }

  bool create();
  void destroy();
  HWND handle() const { return window; }

  /// The name of the active drawing; empty if none is open.
  void showTitle(std::wstring_view drawing);
  void write(std::wstring_view text);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void layOut() const;

  HWND window = nullptr;
  HWND commandLine = nullptr;
};

/// Dispatches a message as the editor's own loop does: before a key goes to a modeless window that
/// belongs to the editor, that window is asked whether it keeps the focus.
void dispatchMessage(HWND mainWindow, MSG& message);

}  // namespace wb
