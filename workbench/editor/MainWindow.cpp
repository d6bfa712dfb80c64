#include "editor/MainWindow.h"

#include <aced.h>

#include <string>

#include "editor/ContextMenus.h"
#include "editor/DocumentManager.h"
#include "editor/Host.h"
#include "editor/Selection.h"

namespace wb {

constexpr wchar_t windowClass[] = L"WorkbenchMainWindow";
constexpr wchar_t product[] = L"Workbench (a stand-in, not AutoCAD)";
constexpr int commandLineHeight = 68;
constexpr int statusBarHeight = 20;
constexpr UINT raiseOwnedMessage = WM_APP;

static BOOL CALLBACK raiseIfOwned(HWND window, LPARAM owner) {
  if (IsWindowVisible(window) && GetWindow(window, GW_OWNER) == reinterpret_cast<HWND>(owner)) {
    // Wine only restacks what moves in its own order, hence the detour.
    constexpr UINT orderOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    SetWindowPos(window, HWND_BOTTOM, 0, 0, 0, 0, orderOnly | SWP_NOOWNERZORDER);
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, orderOnly | SWP_NOOWNERZORDER);
  }
  return TRUE;
}

bool MainWindow::create() {
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  WNDCLASSEXW description = {};
  description.cbSize = sizeof description;
  description.lpfnWndProc = procedure;
  description.hInstance = instance;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
  description.lpszClassName = windowClass;
  if (!RegisterClassExW(&description) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) return false;
  window = CreateWindowExW(0, windowClass, product, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 40, 40,
                           960, 640, nullptr, nullptr, instance, this);
  if (!window) return false;
  const auto make = [&](const wchar_t* type, DWORD style, DWORD extendedStyle) {
    const HWND control = CreateWindowExW(extendedStyle, type, L"", WS_CHILD | WS_VISIBLE | style, 0,
                                         0, 0, 0, window, nullptr, instance, nullptr);
    const auto font = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessageW(control, WM_SETFONT, font, TRUE);
    return control;
  };
  constexpr DWORD readOnlyText = WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL;
  commandLine = make(L"EDIT", readOnlyText, WS_EX_CLIENTEDGE);
  statusBar = make(L"STATIC", SS_NOPREFIX | SS_CENTERIMAGE, 0);
  if (!commandLine || !statusBar || !drawingView.create(window)) return false;
  drawingView.onClick = [](AcDbObjectId id) { Selection::instance().click(id); };
  drawingView.onMenu = [](POINT place) { Host::instance().menus().show(place); };
  drawingView.onShown = [this](const std::wstring& text) {
    SetWindowTextW(statusBar, (L"  " + text).c_str());
  };
  layOut();
  ShowWindow(window, SW_SHOW);
  UpdateWindow(window);
  return true;
}

void MainWindow::destroy() {
  drawingView.destroy();
  if (window) DestroyWindow(window);
  window = commandLine = statusBar = nullptr;
  rows.clear();
  onMessage = nullptr;
}

void MainWindow::addRow(HWND control, bool above, int height) {
  rows.push_back({control, above, height});
  layOut();
}

void MainWindow::layOut() const {
  RECT rest;
  if (!commandLine || !GetClientRect(window, &rest)) return;
  const int width = rest.right;
  const auto below = [&](HWND control, int height) {
    rest.bottom -= height;
    MoveWindow(control, 0, rest.bottom, width, height, TRUE);
  };
  below(statusBar, statusBarHeight);
  for (const Row& row : rows) {
    if (!row.above) {
      below(row.control, row.height);
    } else {
      MoveWindow(row.control, 0, rest.top, width, row.height, TRUE);
      rest.top += row.height;
    }
  }
  below(commandLine, commandLineHeight);
  MoveWindow(drawingView.handle(), 0, rest.top, width, std::max(rest.bottom - rest.top, 0L), TRUE);
}

void MainWindow::show(std::wstring_view title, const Drawing* drawing) {
  std::wstring caption = product;
  if (!title.empty()) {
    caption += L" - [" + std::wstring(title.substr(title.find_last_of(L"\\/") + 1)) + L"]";
  }
  if (window) SetWindowTextW(window, caption.c_str());
  drawingView.show(drawing);
}

void MainWindow::refresh() {
  if (!window) return;
  drawingView.refresh(Selection::instance().picked());
}

void MainWindow::write(std::wstring_view text) {
  if (!commandLine) return;
  std::wstring lines = L"\r\n";
  if (!text.empty() && text.front() == L'\n') text.remove_prefix(1);
  for (wchar_t c : text) {
    if (c == L'\n') lines += L'\r';
    lines += c;
  }
  const int end = GetWindowTextLengthW(commandLine);
  SendMessageW(commandLine, EM_SETSEL, static_cast<WPARAM>(end), end);
  SendMessageW(commandLine, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(lines.c_str()));
}

LRESULT CALLBACK MainWindow::procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  const auto* self = reinterpret_cast<const MainWindow*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
  if (self && self->onMessage && self->onMessage(message, wParam, lParam)) return 0;
  switch (message) {
    case WM_SIZE:
      if (self) self->layOut();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE) PostMessageW(handle, raiseOwnedMessage, 0, 0);
      return DefWindowProcW(handle, message, wParam, lParam);
    case raiseOwnedMessage:
      // Windows keeps a window's floating ones above it; Wine's desktop loses them behind it.
      EnumThreadWindows(GetCurrentThreadId(), raiseIfOwned, reinterpret_cast<LPARAM>(handle));
      return 0;
    case WM_CLOSE:
      // The loop that runs the editor ends it; the documents decide.
      Host::instance().requestQuit();
      return 0;
    default:
      return DefWindowProcW(handle, message, wParam, lParam);
  }
}

}  // namespace wb
