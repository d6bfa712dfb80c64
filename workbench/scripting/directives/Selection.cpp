// What the user picks in the drawing, and the right-click menu on it.

#include "editor/Selection.h"
#include "core/Transcript.h"
#include "dialogs/Reader.h"
#include "editor/Host.h"
#include "gate/HostError.h"
#include "scripting/Directives.h"

namespace wb {
namespace {

std::vector<std::wstring> names(Arguments& arguments) {
  std::vector<std::wstring> all;
  while (!arguments.atEnd()) all.push_back(arguments.word());
  return all;
}

void pick(ScriptContext&, Arguments& arguments) {
  try {
    Selection::instance().pick(names(arguments));
  } catch (const HostError& error) {
    throw ImpossibleStep(error.reason);
  }
}

void select(ScriptContext&, Arguments& arguments) {
  if (arguments.atEnd()) arguments.fail(L"something is missing");
  Selection::instance().answer(names(arguments));
}

std::wstring describe(const MenuItem& item) {
  std::wstring line = wb::quoted(item.text);
  line += item.isPopup ? L" submenu" : L" id=" + std::to_wstring(item.id);
  if (item.grayed) line += L" grayed";
  if (!item.submenu.empty()) line += L" in " + wb::quoted(item.submenu);
  return line;
}

void menu(ScriptContext&, Arguments& arguments) {
  std::wstring file, submenu;
  if (arguments.take(L"shot")) {
    file = windowsPath(arguments.textUntil({L"open"}));
    if (arguments.take(L"open")) submenu = arguments.textUntil();
  }
  arguments.end();
  const Selection::Ids picked = Selection::instance().picked();
  if (picked.empty()) throw ScriptError(L"nothing is picked");
  ContextMenus& menus = Host::instance().menus();
  menus.rightClick(picked);
  for (const MenuItem& item : menus.items()) tell(Event::menu, describe(item));
  if (menus.items().empty()) tell(Event::menu, L"no entries");
  if (file.empty()) return;
  try {
    menus.picture(submenu, file);
  } catch (const DialogError& error) {
    throw ScriptError(error.reason);
  }
}

bool isOpenFor(const ContextMenus& menus, const Selection::Ids& picked) {
  return !menus.items().empty() && menus.clicked() == picked;
}

void choose(ScriptContext&, Arguments& arguments) {
  const std::wstring text = arguments.restOfLine();
  ContextMenus& menus = Host::instance().menus();
  if (!isOpenFor(menus, Selection::instance().picked())) {
    throw ImpossibleStep(L"no menu is open on the pick set: @menu opens it");
  }
  for (const MenuItem& item : menus.items()) {
    if ((item.submenu.empty() ? item.text : item.submenu + L" > " + item.text) != text) continue;
    if (item.grayed) throw ScriptError(L"the menu's item is grayed: " + text);
    if (item.isPopup) throw ScriptError(L"that opens a submenu, it is no item: " + text);
    return menus.choose(MenuItem(item));
  }
  throw ImpossibleStep(L"the menu has no item " + wb::quoted(text));
}

void chooseAny(ScriptContext&, Arguments& arguments) {
  const auto seed = static_cast<size_t>(arguments.number());
  arguments.end();
  ContextMenus& menus = Host::instance().menus();
  std::vector<MenuItem> possible;
  for (const MenuItem& item : menus.items()) {
    if (!item.grayed && !item.isPopup) possible.push_back(item);
  }
  if (!isOpenFor(menus, Selection::instance().picked()) || possible.empty()) {
    throw ScriptError(L"no menu with an item to choose is open on the pick set");
  }
  menus.choose(possible[seed % possible.size()]);
}

}  // namespace

std::vector<Directive> selectionDirectives() {
  return {
      {L"pick", L"@pick [NAME...], where #N is the N-th entity that is no block reference", pick,
       false},
      {L"select", L"@select NAME..., or @select none", select, true},
      {L"menu", L"@menu, or @menu shot FILE [open SUBMENU]", menu, false},
      {L"choose", L"@choose TEXT, or @choose SUBMENU > TEXT", choose, false},
      {L"choose-any", L"@choose-any SEED", chooseAny, false},
  };
}

}  // namespace wb
