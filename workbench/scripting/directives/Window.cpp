#include <windows.h>

#include "core/Transcript.h"
#include "dialogs/Reader.h"
#include "scripting/Directives.h"
#include "ui/resource.h"
#include "watch/ImportWatch.h"

namespace wb {
namespace {

constexpr UINT_PTR monitorTimer = 1;

HWND statusWindow() {
  const HWND found = findStatusWindow();
  if (!found) throw ImpossibleStep(L"there is no status window");
  return found;
}

/// Posted, so that the host's own message loop delivers it as it does for a person.
void post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (!PostMessageW(window, message, wParam, lParam)) {
    throw ScriptError(L"the status window's queue is full");
  }
}

void tick(ScriptContext&, Arguments& arguments) {
  arguments.end();
  const HWND window = statusWindow();
  if (!watchedTimer(window, monitorTimer)) {
    throw ImpossibleStep(L"the status window's timer isn't running");
  }
  post(window, WM_TIMER, monitorTimer, 0);
}

void click(ScriptContext&, Arguments& arguments) {
  const HWND window = statusWindow();
  const int id = arguments.number();
  arguments.end();
  const HWND control = GetDlgItem(window, id);
  if (!control) arguments.fail(L"the status window has no control " + std::to_wstring(id));
  if (!IsWindowVisible(window)) throw ScriptError(L"the status window is hidden");
  if (!IsWindowEnabled(control)) {
    throw ImpossibleStep(L"the control " + std::to_wstring(id) + L" is disabled");
  }
  post(control, BM_CLICK, 0, 0);
}

std::wstring controlState(HWND window, int id, const std::wstring& state = {}) {
  const bool enabled = IsWindowEnabled(GetDlgItem(window, id)) != FALSE;
  return std::to_wstring(id) + L'=' + state + (state.empty() ? L"" : L" ") +
         (enabled ? L"enabled" : L"disabled");
}

std::wstring boxState(HWND window, int id) {
  static constexpr const wchar_t* states[] = {L"unchecked", L"checked", L"indeterminate"};
  const LRESULT state = SendDlgItemMessageW(window, id, BM_GETCHECK, 0, 0) & 3;
  return controlState(window, id, state <= BST_INDETERMINATE ? states[state] : L"?");
}

void show(HWND window) {
  const std::wstring version = wb::quoted(windowTitle(GetDlgItem(window, IDC_VERSION)));
  const auto timer = watchedTimer(window, monitorTimer);
  tell(Event::window,
       wb::quoted(windowTitle(window)) + (IsWindowVisible(window) ? L" shown, " : L" hidden, ") +
           boxState(window, IDC_XREFS_LATEST) + L", " + boxState(window, IDC_CHECKED_OUT_HERE) +
           L", " + controlState(window, IDC_VERSION, version) + L", " +
           controlState(window, IDC_REFRESH) + L", timer=" +
           (timer ? std::to_wstring(*timer) + L" ms" : std::wstring(L"off")));
}

void window(ScriptContext&, Arguments& arguments) {
  const HWND window = statusWindow();
  if (arguments.take(L"close")) {
    arguments.end();
    if (!IsWindowVisible(window)) throw ScriptError(L"the status window is hidden");
    post(window, WM_SYSCOMMAND, SC_CLOSE, 0);
  } else if (arguments.take(L"move")) {
    const int left = arguments.number();
    const int top = arguments.number();
    arguments.end();
    SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  } else {
    arguments.end();
    show(window);
  }
}

}  // namespace

std::vector<Directive> windowDirectives() {
  return {
      {L"tick", L"@tick", tick, false},
      {L"click", L"@click ID", click, false},
      {L"window", L"@window, @window close, or @window move X Y", window, true},
  };
}

}  // namespace wb
