#include "dialogs/MenuPicture.h"

#include <algorithm>
#include <optional>

#include "core/SessionState.h"
#include "core/Transcript.h"
#include "dialogs/DialogError.h"
#include "dialogs/Screenshot.h"

namespace wb {
namespace {

constexpr UINT tickLength = 50;  // milliseconds
constexpr int ticksToWait = 100;
constexpr UINT firstHostId = 0xE000;
constexpr POINT clicked{260, 120};  // in the owner's client area

// "&&" shows one "&"; a single one only marks the letter behind it.
std::wstring shownText(const std::wstring& text) {
  std::wstring shown;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text[at] == L'&' && ++at == text.size()) break;
    shown += text[at];
  }
  return shown;
}

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
  explicit ObjectMenu(const std::vector<HMENU>& entries, UINT stateOfOwn = MF_ENABLED)
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
  HMENU handle() const { return menu; }

  /// How often the arrow key is pressed until the item is lit: separators are no stop on the way.
  std::optional<int> keysTo(const std::wstring& text) const {
    int keys = 0;
    for (int position = 0; position < GetMenuItemCount(menu); ++position) {
      if (GetMenuState(menu, static_cast<UINT>(position), MF_BYPOSITION) & MF_SEPARATOR &&
          !GetSubMenu(menu, position)) {
        continue;
      }
      ++keys;
      if (GetSubMenu(menu, position) && menuItemText(menu, static_cast<UINT>(position)) == text) {
        return keys;
      }
    }
    return {};
  }

 private:
  void append(UINT flags, UINT id, const wchar_t* text) { AppendMenuW(menu, flags, id, text); }

  void addItemsOf(HMENU entries) {
    for (int position = 0; position < GetMenuItemCount(entries); ++position) {
      std::wstring text = storedText(entries, static_cast<UINT>(position));
      MENUITEMINFOW item{};
      item.cbSize = sizeof(item);
      item.fMask = MIIM_ID | MIIM_STATE | MIIM_SUBMENU | MIIM_FTYPE;
      if (!GetMenuItemInfoW(entries, static_cast<UINT>(position), TRUE, &item)) continue;
      item.fMask |= MIIM_STRING;
      item.dwTypeData = text.data();
      InsertMenuItemW(menu, static_cast<UINT>(GetMenuItemCount(menu)), TRUE, &item);
    }
  }

  HMENU menu;
};

BOOL CALLBACK countMenu(HWND window, LPARAM count) {
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  if (std::wstring(name) == L"#32768" && IsWindowVisible(window)) ++*reinterpret_cast<int*>(count);
  return TRUE;
}

/// Plays the person in front of a menu. A menu's loop is Windows' own and lets nobody else in: the
/// timer gets its turn in it, and the keys wait in the queue that it reads.
class MenuReader {
 public:
  MenuReader(HWND owner, int keys, const std::wstring& file)
      : owner(owner), keys(keys), file(file), timer(SetTimer(nullptr, 0, tickLength, onTimer)) {
    current() = this;
  }
  MenuReader(const MenuReader&) = delete;
  MenuReader& operator=(const MenuReader&) = delete;
  ~MenuReader() {
    KillTimer(nullptr, timer);
    current() = nullptr;
  }
  std::wstring problem = L"the menu wasn't shown";

 private:
  static void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (current()) current()->tick();
  }

  static int menusOnScreen() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), countMenu, reinterpret_cast<LPARAM>(&count));
    return count;
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

  /// A timer without a window carries nothing that leads to its reader.
  struct Current {
    MenuReader* reader = nullptr;
  };
  static MenuReader*& current() { return sessionPart<Current>().reader; }

  const HWND owner;
  const int keys;
  const std::wstring& file;
  const UINT_PTR timer;
  int ticks = 0;
  bool opened = false;
  bool pictured = false;
};

}  // namespace

std::wstring menuItemText(HMENU menu, UINT position) {
  return shownText(storedText(menu, position));
}

UINT showMenu(HWND owner, const std::vector<HMENU>& entries, POINT place) {
  const ObjectMenu menu(entries, MF_GRAYED);
  return static_cast<UINT>(TrackPopupMenu(menu.handle(),
                                          TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, place.x,
                                          place.y, 0, owner, nullptr));
}

void pictureMenu(HWND owner, const std::vector<HMENU>& entries, const std::wstring& submenu,
                 const std::wstring& file) {
  const ObjectMenu menu(entries);
  const std::optional<int> keys = submenu.empty() ? 0 : menu.keysTo(submenu);
  if (!keys) throw DialogError(L"the menu has no submenu " + wb::quoted(submenu));
  POINT place = clicked;
  ClientToScreen(owner, &place);
  // The pointer stands where the menu opens; elsewhere it would light an item that it lies on.
  SetCursorPos(place.x, place.y);
  MenuReader reader(owner, *keys, file);
  TrackPopupMenu(menu.handle(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, place.x, place.y, 0,
                 owner, nullptr);
  if (!reader.problem.empty()) throw DialogError(reader.problem);
}

}  // namespace wb
