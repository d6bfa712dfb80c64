#include "host/ContextMenus.h"

#include <rxclass.h>

#include <algorithm>

#include "host/Host.h"
#include "host/Names.h"

Adesk::Boolean acedAddObjectContextMenu(const AcRxClass* pClass, AcEdUIContext* pContext,
                                        const void* appId) {
  return wb::Host::instance().menus().add(pClass, pContext, appId) ? Adesk::kTrue : Adesk::kFalse;
}

Adesk::Boolean acedRemoveObjectContextMenu(const AcRxClass* pClass, AcEdUIContext* pContext) {
  return wb::Host::instance().menus().remove(pClass, pContext) ? Adesk::kTrue : Adesk::kFalse;
}

namespace wb {

bool ContextMenus::add(const AcRxClass* entityClass, AcEdUIContext* context,
                       const void* application) {
  const bool there = std::any_of(entries.begin(), entries.end(), [&](const Entry& one) {
    return one.entityClass == entityClass && one.context == context;
  });
  if (!entityClass || !context || there) return false;
  const Ticket ticket = handOut(L"context menu", entityClass->name());
  keepBeyondCommand(ticket);
  entries.push_back({entityClass, context, application, ticket});
  return true;
}

bool ContextMenus::remove(const AcRxClass* entityClass, AcEdUIContext* context) {
  const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry& one) {
    return one.entityClass == entityClass && one.context == context;
  });
  if (found == entries.end()) return false;
  giveBack(found->ticket);
  entries.erase(found);
  return true;
}

std::vector<AcEdUIContext*> ContextMenus::contextsFor(const AcRxClass* entityClass) const {
  std::vector<AcEdUIContext*> contexts;
  for (const Entry& one : entries) {
    if (entityClass->isDerivedFrom(one.entityClass)) contexts.push_back(one.context);
  }
  return contexts;
}

void ContextMenus::dropOf(HMODULE module) {
  entries.erase(std::remove_if(entries.begin(), entries.end(),
                               [&](const Entry& one) { return isOfModule(module, one.context); }),
                entries.end());
}

}  // namespace wb
