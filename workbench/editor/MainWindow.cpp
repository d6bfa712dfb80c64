#include "editor/MainWindow.h"

#include <aced.h>
#include <adscodes.h>

#include <string>

#include "editor/Host.h"

namespace wb {

namespace {

constexpr wchar_t windowClass[] = L"WorkbenchMainWindow";
constexpr int commandLineHeight = 96;
constexpr UINT raiseOwnedMessage = WM_APP;

BOOL CALLBACK raiseIfOwned(HWND window, LPARAM owner) {
  if (IsWindowVisible(window) && GetWindow(window, GW_OWNER) == reinterpret_cast<HWND>(owner)) {
    // Wine only restacks what moves in its own order, hence the detour.
    constexpr UINT orderOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    SetWindowPos(window, HWND_BOTTOM, 0, 0, 0, 0, orderOnly | SWP_NOOWNERZORDER);
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, orderOnly | SWP_NOOWNERZORDER);
  }
  return TRUE;
}

}  // namespace

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
  window = CreateWindowExW(0, windowClass, L"AutoCAD", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 40,
                           40, 800, 560, nullptr, nullptr, instance, this);
  if (!window) return false;
  commandLine = CreateWindowExW(
      WS_EX_CLIENTEDGE, L"EDIT", L"",
      WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL, 0, 0, 0, 0,
      window, nullptr, instance, nullptr);
  layOut();
  ShowWindow(window, SW_SHOW);
  UpdateWindow(window);
  return commandLine != nullptr;
}

void MainWindow::destroy() {
  if (window) DestroyWindow(window);
  window = commandLine = nullptr;
}

void MainWindow::layOut() const {
  RECT client;
  if (!commandLine || !GetClientRect(window, &client)) return;
  MoveWindow(commandLine, 0, client.bottom - commandLineHeight, client.right, commandLineHeight,
             TRUE);
}

void MainWindow::showTitle(std::wstring_view drawing) {
  std::wstring caption = L"AutoCAD";
  if (!drawing.empty()) {
    caption += L" - [" + std::wstring(drawing.substr(drawing.find_last_of(L"\\/") + 1)) + L"]";
  }
  if (window) SetWindowTextW(window, caption.c_str());
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
      // The documents decide: the loop that runs the editor ends it when it finds the wish.
      Host::instance().requestQuit();
      return 0;
    default:
      return DefWindowProcW(handle, message, wParam, lParam);
  }
}

void dispatchMessage(HWND mainWindow, MSG& message) {
  const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
  const HWND top = message.hwnd ? GetAncestor(message.hwnd, GA_ROOT) : nullptr;
  if (isKey && top && top != mainWindow && GetWindow(top, GW_OWNER) == mainWindow) {
    if (!SendMessageW(top, WM_ACAD_KEEPFOCUS, 0, 0)) SetFocus(mainWindow);
    if (IsDialogMessageW(top, &message)) return;
  }
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

}  // namespace wb
