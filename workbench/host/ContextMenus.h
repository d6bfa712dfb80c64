#pragma once

#include <aced.h>

#include <vector>

#include "core/Accounts.h"

namespace wb {

/// The applications' entries in the right-click menus, by the class of the entities.
class ContextMenus {
 public:
  /// False if the context is there already for that class.
  bool add(const AcRxClass* entityClass, AcEdUIContext* context, const void* application);
  bool remove(const AcRxClass* entityClass, AcEdUIContext* context);
  /// The contexts for entities of the class, those of its base classes included, in the order
  /// they were added.
  std::vector<AcEdUIContext*> contextsFor(const AcRxClass* entityClass) const;
  void dropOf(HMODULE module);

 private:
  struct Entry {
    const AcRxClass* entityClass;
    AcEdUIContext* context;
    const void* application;
    Ticket ticket;
  };
  std::vector<Entry> entries;
};

}  // namespace wb
