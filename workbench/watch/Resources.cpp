#include <windows.h>

#include <algorithm>
#include <map>

#include "core/HandleLedger.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "watch/ImportWatch.h"
#include "watch/WatchedCalls.h"

namespace wb {
namespace {

struct WatchedResources {
  HandleLedger<HANDLE> files{L"file"};
  HandleLedger<HANDLE> images{L"image"};
  HandleLedger<HMENU> menus{L"menu"};
};

WatchedResources& watched() { return sessionPart<WatchedResources>(); }

HANDLE WINAPI seenCreateFileW(LPCWSTR name, DWORD access, DWORD share,
                              LPSECURITY_ATTRIBUTES security, DWORD disposition, DWORD flags,
                              HANDLE pattern) {
  const HANDLE file = CreateFileW(name, access, share, security, disposition, flags, pattern);
  const DWORD error = GetLastError();
  if (file != INVALID_HANDLE_VALUE) watched().files.opened(file, name ? name : L"");
  SetLastError(error);
  return file;
}

BOOL WINAPI seenCloseHandle(HANDLE handle) {
  const BOOL closed = CloseHandle(handle);
  const DWORD error = GetLastError();
  if (closed) {
    watched().files.closed(handle);
  } else {
    tell(Event::error, L"CloseHandle of a handle that isn't open");
  }
  SetLastError(error);
  return closed;
}

std::wstring resourceName(LPCWSTR name) {
  if (IS_INTRESOURCE(name)) {
    return L"resource " + std::to_wstring(reinterpret_cast<ULONG_PTR>(name));
  }
  return name;
}

HANDLE WINAPI seenLoadImageW(HINSTANCE instance, LPCWSTR name, UINT type, int width, int height,
                             UINT flags) {
  if (windowsFails(L"module.LoadImageW")) return nullptr;
  const HANDLE image = LoadImageW(instance, name, type, width, height, flags);
  const DWORD error = GetLastError();
  // Shared images belong to Windows.
  if (image && !(flags & LR_SHARED)) watched().images.opened(image, resourceName(name));
  SetLastError(error);
  return image;
}

BOOL WINAPI seenDeleteObject(HGDIOBJ object) {
  const BOOL deleted = DeleteObject(object);
  if (deleted) {
    watched().images.closed(object);
  } else {
    tell(Event::error, L"DeleteObject of an object that is gone");
  }
  return deleted;
}

BOOL WINAPI seenAppendMenuW(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text) {
  return windowsFails(L"module.AppendMenuW") ? FALSE : AppendMenuW(menu, flags, id, text);
}

HMENU WINAPI seenCreatePopupMenu() {
  if (windowsFails(L"module.CreatePopupMenu")) return nullptr;
  const HMENU menu = CreatePopupMenu();
  const DWORD error = GetLastError();
  // A menu is kept for the next time that it is shown.
  if (menu) watched().menus.opened(menu, L"popup", true);
  SetLastError(error);
  return menu;
}

/// DestroyMenu takes the submenus with it.
void collectMenus(HMENU menu, std::vector<HMENU>& all) {
  all.push_back(menu);
  for (int item = 0; item < GetMenuItemCount(menu); ++item) {
    if (const HMENU below = GetSubMenu(menu, item)) collectMenus(below, all);
  }
}

BOOL WINAPI seenDestroyMenu(HMENU menu) {
  std::vector<HMENU> all;
  collectMenus(menu, all);
  const BOOL destroyed = DestroyMenu(menu);
  const DWORD error = GetLastError();
  if (destroyed) {
    for (const HMENU gone : all) watched().menus.closed(gone);
  } else {
    tell(Event::error, L"DestroyMenu of a menu that is gone");
  }
  SetLastError(error);
  return destroyed;
}

}  // namespace

std::vector<WatchedCall> resourceCalls() {
  return {
      {"CreateFileW", observerOf(seenCreateFileW, CreateFileW)},
      {"CloseHandle", observerOf(seenCloseHandle, CloseHandle)},
      {"LoadImageW", observerOf(seenLoadImageW, LoadImageW)},
      {"DeleteObject", observerOf(seenDeleteObject, DeleteObject)},
      {"AppendMenuW", observerOf(seenAppendMenuW, AppendMenuW)},
      {"CreatePopupMenu", observerOf(seenCreatePopupMenu, CreatePopupMenu)},
      {"DestroyMenu", observerOf(seenDestroyMenu, DestroyMenu)},
  };
}

void forgetWatchedResources() {
  watched().files.forget();
  watched().images.forget();
  watched().menus.forget();
}

}  // namespace wb
