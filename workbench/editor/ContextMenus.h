#pragma once

#include <windows.h>

#include <aced.h>

#include <string>
#include <utility>
#include <vector>

#include "core/Accounts.h"
#include "editor/Selection.h"

namespace wb {

/// One item of an open right-click menu, as the person reads it.
struct MenuItem {
  std::wstring text;     ///< without the marks of the letters to press
  std::wstring submenu;  ///< of the popup that it is in, "A > B" for one in another; else empty
  UINT id;               ///< 0 for a popup
  bool grayed;
  bool isPopup;
  AcEdUIContext* context;
  HMENU menu;  ///< the one that it is in
};

/// The applications' entries in the right-click menus, by the class of the entities.
class ContextMenus {
 public:
  /// False if the context is there already for that class.
  bool add(const AcRxClass* entityClass, AcEdUIContext* context);
  bool remove(const AcRxClass* entityClass, AcEdUIContext* context);
  /// Forgets what an application left behind.
  void forgetModule(HMODULE module);

  /// The user right-clicks these entities: each context for all of them is asked for its menu, in
  /// the order they were added, and notified before the menu is shown.
  void rightClick(const Selection::Ids& ids);
  /// The items of the menu that was opened last, until one of them was chosen.
  const std::vector<MenuItem>& items() const { return open; }
  /// The entities it was opened for.
  const Selection::Ids& clicked() const { return clicked_; }
  /// Writes a picture of the menu that was opened last, as the user sees it among the host's own
  /// items.
  /// @throws DialogError if there is no picture
  void picture(const std::wstring& submenu, const std::wstring& file) const;
  /// The user right-clicks what is picked: shows the menu and does what is chosen. Of no effect
  /// while a command runs.
  /// @param place where on the screen
  void show(POINT place);
  /// The user clicks an item: its context runs the command, and the menu closes.
  void choose(const MenuItem& item);

 private:
  std::vector<HMENU> openMenus() const;
  std::vector<AcEdUIContext*> contextsForAll(const Selection::Ids& ids) const;

  HandleLedger<std::pair<const AcRxClass*, AcEdUIContext*>> entries{L"context menu"};
  std::vector<MenuItem> open;
  Selection::Ids clicked_;
};

}  // namespace wb
