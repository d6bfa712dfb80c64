// What the user does at the screen: answers to boxes and dialogs, what he picks, the status window.

#include <windows.h>

#include <algorithm>
#include <cwctype>
#include <iterator>

#include "core/Lists.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "dialogs/Reader.h"
#include "editor/ContextMenus.h"
#include "editor/Host.h"
#include "editor/Selection.h"
#include "gate/HostError.h"
#include "scripting/Directives.h"
#include "ui/resource.h"
#include "watch/ImportWatch.h"

namespace wb {
namespace {

bool isButton(const std::wstring& name) {
  static constexpr const wchar_t* names[] = {L"yes",   L"no",    L"ok",    L"cancel",
                                             L"close", L"abort", L"retry", L"ignore"};
  return contains(names, name) ||
         (!name.empty() && std::all_of(name.begin(), name.end(), std::iswdigit));
}

void answer(Arguments& arguments) {
  const std::wstring button = arguments.word();
  if (!isButton(button)) arguments.fail(wb::quoted(button) + L" is no button");
  std::vector<AnswerStep> steps;
  if (arguments.take(L"shot")) steps.push_back(takePicture(arguments.pathUntil()));
  arguments.end();
  Answers::instance().queue(button, std::move(steps));
}

void answerAny(int seed) {
  // What an earlier part of the script prepared for nothing is no answer in this one.
  Answers::instance().clear();
  Selection::instance().clear();
  Answers::instance().answerAny(static_cast<unsigned>(seed));
}

struct Row {
  explicit Row(Arguments& arguments)
      : number(static_cast<int>(arguments.number(1, L"rows are counted from 1"))) {}
  int number;
};

void prepare(AnswerStep step) { Answers::instance().prepare(std::move(step)); }

void pick(const std::vector<std::wstring>& names) {
  try {
    Selection::instance().pick(names);
  } catch (const HostError& error) {
    throw ImpossibleStep(error.reason);
  }
}

std::wstring describe(const MenuItem& item) {
  std::wstring line = wb::quoted(item.text);
  line += item.isPopup ? L" submenu" : L" id=" + std::to_wstring(item.id);
  if (item.grayed) line += L" grayed";
  if (!item.submenu.empty()) line += L" in " + wb::quoted(item.submenu);
  return line;
}

void menu(Arguments& arguments) {
  std::wstring file, submenu;
  if (arguments.take(L"shot")) {
    file = arguments.pathUntil({L"open"});
    if (arguments.take(L"open")) submenu = arguments.textUntil();
  }
  arguments.end();
  const Selection::Ids picked = Selection::instance().picked();
  if (picked.empty()) throw ScriptError(L"nothing is picked");
  ContextMenus& menus = Host::instance().menus();
  menus.rightClick(picked);
  for (const MenuItem& item : menus.items()) report(Event::menu, describe(item));
  if (menus.items().empty()) report(Event::menu, L"no entries");
  if (file.empty()) return;
  try {
    menus.picture(submenu, file);
  } catch (const DialogError& error) {
    throw ScriptError(error.reason);
  }
}

/// Whether a menu is open on what is picked.
bool isOpen(const ContextMenus& menus) {
  return !menus.items().empty() && menus.clicked() == Selection::instance().picked();
}

void choose(const RestOfLine& text) {
  ContextMenus& menus = Host::instance().menus();
  if (!isOpen(menus)) throw ImpossibleStep(L"no menu is open on the pick set: @menu opens it");
  for (const MenuItem& item : menus.items()) {
    if ((item.submenu.empty() ? item.text : item.submenu + L" > " + item.text) != text) continue;
    if (item.grayed) throw ScriptError(L"the menu's item is grayed: " + text);
    if (item.isPopup) throw ScriptError(L"that opens a submenu, it is no item: " + text);
    return menus.choose(MenuItem(item));
  }
  throw ImpossibleStep(L"the menu has no item " + wb::quoted(text));
}

void chooseAny(int seed) {
  ContextMenus& menus = Host::instance().menus();
  std::vector<MenuItem> possible;
  for (const MenuItem& item : menus.items()) {
    if (!item.grayed && !item.isPopup) possible.push_back(item);
  }
  if (!isOpen(menus) || possible.empty()) {
    throw ScriptError(L"no menu with an item to choose is open on the pick set");
  }
  menus.choose(possible[static_cast<size_t>(seed) % possible.size()]);
}

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

void tick() {
  const HWND window = statusWindow();
  if (!watchedTimer(window, monitorTimer)) {
    throw ImpossibleStep(L"the status window's timer isn't running");
  }
  post(window, WM_TIMER, monitorTimer, 0);
}

void requireVisible(HWND window) {
  if (!IsWindowVisible(window)) throw ScriptError(L"the status window is hidden");
}

void click(Arguments& arguments) {
  const HWND window = statusWindow();
  const int id = ControlId(arguments).number;
  arguments.end();
  const HWND control = GetDlgItem(window, id);
  if (!control) arguments.fail(L"the status window has no control " + std::to_wstring(id));
  requireVisible(window);
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
  report(Event::window,
         wb::quoted(windowTitle(window)) + (IsWindowVisible(window) ? L" shown, " : L" hidden, ") +
             boxState(window, IDC_XREFS_LATEST) + L", " + boxState(window, IDC_CHECKED_OUT_HERE) +
             L", " + controlState(window, IDC_VERSION, version) + L", " +
             controlState(window, IDC_REFRESH) + L", timer=" +
             (timer ? std::to_wstring(*timer) + L" ms" : std::wstring(L"off")));
}

void window(Arguments& arguments) {
  const HWND window = statusWindow();
  const bool closes = arguments.take(L"close");
  const bool moves = !closes && arguments.take(L"move");
  const int left = moves ? arguments.number() : 0;
  const int top = moves ? arguments.number() : 0;
  arguments.end();
  if (closes) {
    requireVisible(window);
    post(window, WM_SYSCOMMAND, SC_CLOSE, 0);
  } else if (moves) {
    SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  } else {
    show(window);
  }
}

}  // namespace

std::vector<Directive> userDirectives() {
  return {atAnyTime(L"@answer yes|no|ok|cancel|close|abort|retry|ignore|ID [shot FILE]", answer),
          atAnyTime(L"@answer-any SEED", answerAny),
          atAnyTime(L"@fill ID TEXT",
                    [](ControlId id, const std::optional<RestText>& text) {
                      prepare(fillControl(id.number, text ? std::wstring(*text) : std::wstring()));
                    }),
          atAnyTime(L"@check ID on|off",
                    [](ControlId id, bool on) { prepare(checkControl(id.number, on)); }),
          atAnyTime(L"@row N", [](Row row) { prepare(selectRow(row.number, false)); }),
          atAnyTime(L"@activate-row N",
                    [](Row row) { Answers::instance().queue({}, {selectRow(row.number, true)}); }),
          atAnyTime(L"@press ID", [](ControlId id) { prepare(clickControl(id.number)); }),
          atAnyTime(L"@shot-next FILE", [](const RestPath& file) { prepare(takePicture(file)); }),
          atAnyTime(L"@texts-next", [] { prepare(reportTexts()); }),
          {L"@pick [NAME...], where #N is the N-th entity that is no block reference", pick},
          atAnyTime(L"@select NAME..., or @select none",
                    [](Arguments& arguments) {
                      if (arguments.atEnd()) arguments.fail(L"something is missing");
                      Selection::instance().answer(arguments.words());
                    }),
          {L"@menu, or @menu shot FILE [open SUBMENU]", menu},
          {L"@choose TEXT, or @choose SUBMENU > TEXT", choose},
          {L"@choose-any SEED", chooseAny},
          {L"@tick", tick},
          {L"@click ID", click},
          atAnyTime(L"@window, @window close, or @window move X Y", window)};
}

}  // namespace wb
