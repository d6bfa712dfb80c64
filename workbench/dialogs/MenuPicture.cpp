#include "dialogs/MenuPicture.h"

#include <algorithm>

#include "core/Transcript.h"
#include "dialogs/Reader.h"
#include "dialogs/Screenshot.h"

namespace wb {
namespace {

constexpr UINT tickLength = 50;  // milliseconds
constexpr int ticksToWait = 100;
constexpr UINT firstHostId = 0xE000;
constexpr POINT clicked{260, 120};  // in the owner's client area

std::wstring storedText(HMENU menu, UINT position) {
  const int length = GetMenuStringW(menu, position, nullptr, 0, MF_BYPOSITION);
  std::wstring text(static_cast<size_t>(std::max(length, 0)) + 1, L'\0');
  GetMenuStringW(menu, position, text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
  text.resize(text.size() - 1);
  return text;
}

/// The host's menu for objects. The submenus of the entries in it stay the applications' own.
class ObjectMenu {
 public:
  explicit ObjectMenu(const std::vector<HMENU>& entries, UINT stateOfOwn)
      : menu(CreatePopupMenu()) {
    UINT id = firstHostId;
    for (const wchar_t* text : {L"&Erase", L"&Move", L"&Rotate"}) append(stateOfOwn, id++, text);
    append(MF_SEPARATOR, 0, nullptr);
    for (const HMENU one : entries) addItemsOf(one);
    if (!entries.empty()) append(MF_SEPARATOR, 0, nullptr);
    append(stateOfOwn, id, L"&Properties");
  }
  ObjectMenu(const ObjectMenu&) = delete;
  ObjectMenu& operator=(const ObjectMenu&) = delete;
  ~ObjectMenu() {
    while (GetMenuItemCount(menu) > 0) RemoveMenu(menu, 0, MF_BYPOSITION);
    DestroyMenu(menu);
  }

  /// @return the number of the chosen item, 0 for none
  UINT show(HWND owner, POINT place) const {
    const UINT flags = TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON;
    return static_cast<UINT>(TrackPopupMenu(menu, flags, place.x, place.y, 0, owner, nullptr));
  }

  /// How often the arrow key is pressed until the submenu is lit: separators are no stop on the
  /// way.
  /// @throws DialogError if there is none
  int keysTo(const std::wstring& submenu) const {
    int keys = 0;
    for (UINT position = 0; position < static_cast<UINT>(GetMenuItemCount(menu)); ++position) {
      if (GetSubMenu(menu, static_cast<int>(position))) {
        ++keys;
        if (menuItemText(menu, position) == submenu) return keys;
      } else if (!(GetMenuState(menu, position, MF_BYPOSITION) & MF_SEPARATOR)) {
        ++keys;
      }
    }
    throw DialogError(L"the menu has no submenu " + wb::quoted(submenu));
  }

 private:
  void append(UINT flags, UINT id, const wchar_t* text) { AppendMenuW(menu, flags, id, text); }

  void addItemsOf(HMENU entries) {
    for (UINT position = 0; position < static_cast<UINT>(GetMenuItemCount(entries)); ++position) {
      std::wstring text = storedText(entries, position);
      MENUITEMINFOW item{};
      item.cbSize = sizeof(item);
      item.fMask = MIIM_ID | MIIM_STATE | MIIM_SUBMENU | MIIM_FTYPE;
      if (!GetMenuItemInfoW(entries, position, TRUE, &item)) continue;
      item.fMask |= MIIM_STRING;
      item.dwTypeData = text.data();
      InsertMenuItemW(menu, static_cast<UINT>(GetMenuItemCount(menu)), TRUE, &item);
    }
  }

  const HMENU menu;
};

/// Does what a person does in front of a menu. A menu's loop is Windows' own: a timer of the owner
/// runs in it, and the keys wait in the queue that it reads.
class MenuReader {
 public:
  MenuReader(HWND owner, int keys, const std::wstring& file)
      : owner(owner), keys(keys), file(file) {
    SetTimer(owner, id(), tickLength, onTimer);
  }
  MenuReader(const MenuReader&) = delete;
  MenuReader& operator=(const MenuReader&) = delete;
  ~MenuReader() { KillTimer(owner, id()); }

  std::wstring problem = L"the menu wasn't shown";

 private:
  UINT_PTR id() const { return reinterpret_cast<UINT_PTR>(this); }
  static void CALLBACK onTimer(HWND, UINT, UINT_PTR id, DWORD) {
    reinterpret_cast<MenuReader*>(id)->tick();
  }

  static int menusOnScreen() {
    const std::vector<HWND> windows = threadWindows();
    return static_cast<int>(std::count_if(windows.begin(), windows.end(), [](HWND window) {
      return windowClass(window) == L"#32768" && IsWindowVisible(window);
    }));
  }

  void press(WPARAM key) const {
    PostMessageW(owner, WM_KEYDOWN, key, 1);
    PostMessageW(owner, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  }

  /// No exception may cross the system's own frames.
  void takePicture() {
    try {
      savePicture(file);
      problem.clear();
    } catch (const DialogError& error) {
      problem = error.reason;
    }
  }

  void tick() {
    if (++ticks > ticksToWait) {
      EndMenu();
    } else if (!pictured && menusOnScreen() == (opened ? 2 : 1)) {
      if (keys > 0 && !opened) {
        for (int count = 0; count < keys; ++count) press(VK_DOWN);
        press(VK_RIGHT);
        opened = true;
        problem = L"the submenu wasn't shown";
      } else {
        pictured = true;
        takePicture();
        if (opened) press(VK_ESCAPE);
        press(VK_ESCAPE);
      }
    }
  }

  const HWND owner;
  const int keys;
  const std::wstring& file;
  int ticks = 0;
  bool opened = false;
  bool pictured = false;
};

}  // namespace

// "&&" shows one "&"; a single one only marks the letter behind it.
std::wstring menuItemText(HMENU menu, UINT position) {
  const std::wstring text = storedText(menu, position);
  std::wstring shown;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text[at] == L'&') ++at;
    if (at < text.size()) shown += text[at];
  }
  return shown;
}

UINT showMenu(HWND owner, const std::vector<HMENU>& entries, POINT place) {
  return ObjectMenu(entries, MF_GRAYED).show(owner, place);
}

void pictureMenu(HWND owner, const std::vector<HMENU>& entries, const std::wstring& submenu,
                 const std::wstring& file) {
  const ObjectMenu menu(entries, MF_ENABLED);
  const int keys = submenu.empty() ? 0 : menu.keysTo(submenu);
  POINT place = clicked;
  ClientToScreen(owner, &place);
  // The pointer stands where the menu opens; elsewhere it would light an item that it lies on.
  SetCursorPos(place.x, place.y);
  MenuReader reader(owner, keys, file);
  menu.show(owner, place);
  if (!reader.problem.empty()) throw DialogError(reader.problem);
}

}  // namespace wb
