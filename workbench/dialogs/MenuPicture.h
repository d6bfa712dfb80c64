#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace wb {

/// What the person reads on an item of a menu: without the mark of the letter to press.
std::wstring menuItemText(HMENU menu, UINT position);

/// Shows the host's own menu for objects with the applications' entries in it, until the person has
/// chosen an item or closed it.
/// @param place on the screen
/// @return the number of the item, 0 for none; the host's own items can't be chosen.
UINT showMenu(HWND owner, const std::vector<HMENU>& entries, POINT place);

/// Shows the host's own menu for objects on the screen, with the applications' entries in it, and
/// writes a picture of the desktop; then the person closes it with the escape key.
/// @param entries the applications' menus, which keep their items
/// @param submenu the text of an item that is opened before, empty for none
/// @throws DialogError if there is no picture
void pictureMenu(HWND owner, const std::vector<HMENU>& entries, const std::wstring& submenu,
                 const std::wstring& file);

}  // namespace wb
