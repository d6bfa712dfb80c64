#include "editor/ContextMenus.h"

#include <rxclass.h>

#include "core/Lists.h"
#include "core/Program.h"
#include "database/Objects.h"
#include "dialogs/MenuPicture.h"
#include "editor/Host.h"

namespace wb {

static void readMenu(HMENU menu, const std::wstring& submenu, AcEdUIContext* context,
                     std::vector<MenuItem>& items) {
  const int count = GetMenuItemCount(menu);
  for (int position = 0; position < count; ++position) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_ID | MIIM_STATE | MIIM_SUBMENU | MIIM_FTYPE;
    if (!GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info)) continue;
    if (info.fType & MFT_SEPARATOR) continue;
    const std::wstring text = menuItemText(menu, static_cast<UINT>(position));
    items.push_back({text, submenu, info.hSubMenu ? 0 : info.wID, (info.fState & MFS_GRAYED) != 0,
                     info.hSubMenu != nullptr, context, menu});
    if (info.hSubMenu) {
      const std::wstring prefix = submenu.empty() ? submenu : submenu + L" > ";
      readMenu(info.hSubMenu, prefix + text, context, items);
    }
  }
}

bool ContextMenus::add(const AcRxClass* entityClass, AcEdUIContext* context) {
  if (!entityClass || !context || entries.holds({entityClass, context})) return false;
  entries.opened({entityClass, context}, entityClass->name(), true);
  return true;
}

bool ContextMenus::remove(const AcRxClass* entityClass, AcEdUIContext* context) {
  if (!entries.closed({entityClass, context})) return false;
  eraseIf(open, [&](const MenuItem& item) { return item.context == context; });
  return true;
}

void ContextMenus::forgetModule(HMODULE module) {
  entries.forgetIf([&](const auto& entry) { return isOfModule(module, entry.second); });
  eraseIf(open, [&](const MenuItem& item) { return isOfModule(module, item.context); });
}

std::vector<AcEdUIContext*> ContextMenus::contextsForAll(const Selection::Ids& ids) const {
  std::vector<AcEdUIContext*> common;
  for (const AcDbObjectId id : ids) {
    // The contexts for the entity's class, those of its base classes included.
    std::vector<AcEdUIContext*> contexts;
    const AcDbObjectImp* entity = AcDbObjectImp::find(id);
    for (const auto& [entityClass, context] : entries.handles()) {
      if (entity && entity->object()->isA()->isDerivedFrom(entityClass)) {
        contexts.push_back(context);
      }
    }
    if (id == ids.front()) common = contexts;
    eraseIf(common, [&](AcEdUIContext* one) { return !contains(contexts, one); });
  }
  return common;
}

void ContextMenus::rightClick(const Selection::Ids& ids) {
  open.clear();
  clicked_ = ids;
  if (ids.empty()) return;
  AcDbObjectIdArray clicked;
  for (const AcDbObjectId id : ids) clicked.append(id);
  const AcRxClass* entityClass = AcDbObjectImp::find(ids.front())->object()->isA();
  const Ticket since = nextTicket();
  for (AcEdUIContext* context : contextsForAll(ids)) {
    runGuarded(L"a right-click menu", [&] {
      const auto* menu = static_cast<HMENU*>(context->getMenuContext(entityClass, clicked));
      if (!menu) return;
      context->OnUpdateMenu();
      readMenu(*menu, {}, context, open);
    });
  }
  Host::instance().runner().reportLeaks(since, false);
}

std::vector<HMENU> ContextMenus::openMenus() const {
  std::vector<HMENU> menus;
  for (const MenuItem& item : open) {
    if (item.submenu.empty() && (menus.empty() || menus.back() != item.menu)) {
      menus.push_back(item.menu);
    }
  }
  return menus;
}

void ContextMenus::picture(const std::wstring& submenu, const std::wstring& file) const {
  pictureMenu(Host::instance().mainWindow(), openMenus(), submenu, file);
}

void ContextMenus::show(POINT place) {
  const Selection::Ids picked = Selection::instance().picked();
  if (picked.empty() || !Host::instance().documents().isApplicationContext()) return;
  rightClick(picked);
  const UINT id = showMenu(Host::instance().mainWindow(), openMenus(), place);
  const MenuItem* chosen =
      findIf(open, [&](const MenuItem& item) { return id != 0 && item.id == id; });
  if (chosen) choose(MenuItem(*chosen));
}

void ContextMenus::choose(const MenuItem& item) {
  AcEdUIContext* const context = item.context;
  const UINT id = item.id;
  open.clear();
  const Ticket since = nextTicket();
  runGuarded(L"an item of a right-click menu", [&] { context->onCommand(id); });
  Host::instance().runner().reportLeaks(since, false);
}

}  // namespace wb
