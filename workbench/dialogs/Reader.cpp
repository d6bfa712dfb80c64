#include "dialogs/Reader.h"

#include <commctrl.h>

#include <cstdlib>
#include <cwchar>
#include <iterator>

#include "core/Text.h"
#include "core/Transcript.h"

namespace wb {
namespace {

struct NamedButton {
  const wchar_t* name;
  int id;
};

constexpr NamedButton namedButtons[] = {
    {L"ok", IDOK},         {L"cancel", IDCANCEL}, {L"abort", IDABORT}, {L"retry", IDRETRY},
    {L"ignore", IDIGNORE}, {L"yes", IDYES},       {L"no", IDNO},
};

bool isPushButton(HWND control) {
  if (!sameName(windowClass(control), L"Button")) return false;
  switch (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
    case BS_OWNERDRAW:
      return true;
    default:
      return false;
  }
}

bool isUsable(HWND control) {
  const std::wstring type = windowClass(control);
  if (sameName(type, L"Static")) return false;
  return !sameName(type, L"Button") ||
         (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) != BS_GROUPBOX;
}

struct ControlSearch {
  int id;
  HWND found;
};

BOOL CALLBACK matchControl(HWND window, LPARAM argument) {
  auto& search = *reinterpret_cast<ControlSearch*>(argument);
  if (GetDlgCtrlID(window) != search.id) return TRUE;
  search.found = window;
  return FALSE;
}

}  // namespace

std::wstring windowTitle(HWND window) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

std::wstring windowClass(HWND window) {
  wchar_t name[256] = L"";
  const int length = GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return std::wstring(name, static_cast<size_t>(length));
}

bool isDialogWindow(HWND window) {
  return windowClass(window) == L"#32770" && (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) == 0;
}

bool looksModal(HWND dialog) {
  const HWND owner = GetWindow(dialog, GW_OWNER);
  return owner == nullptr || !IsWindowEnabled(owner);
}

bool hasControls(HWND dialog) {
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (isUsable(child)) return true;
  }
  return false;
}

std::wstring messageBoxText(HWND dialog) {
  constexpr int lastBoxButton = 11;  // IDCONTINUE
  std::wstring text;
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (isUsable(child)) {
      const int id = GetDlgCtrlID(child);
      if (!isPushButton(child) || id < IDOK || id > lastBoxButton) return {};
    } else if ((GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON) {
      // A message box has a single text; a dialog with several is something else.
      if (!text.empty()) return {};
      text = windowTitle(child);
    }
  }
  return text;
}

namespace {

std::wstring cellText(HWND list, int row, int column) {
  std::wstring text(1024, L'\0');
  LVITEMW cell{};
  cell.iSubItem = column;
  cell.pszText = text.data();
  cell.cchTextMax = static_cast<int>(text.size());
  text.resize(static_cast<size_t>(SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                                               reinterpret_cast<LPARAM>(&cell))));
  return text;
}

std::wstring rowTexts(HWND list) {
  const HWND header = ListView_GetHeader(list);
  const int columns = header ? Header_GetItemCount(header) : 1;
  std::wstring texts;
  for (int row = 0; row < ListView_GetItemCount(list); ++row) {
    texts += L" row" + std::to_wstring(row + 1) + L'=';
    for (int column = 0; column < columns; ++column) {
      if (column > 0) texts += L',';
      texts += wb::quoted(cellText(list, row, column));
    }
  }
  return texts;
}

}  // namespace

std::wstring controlTexts(HWND dialog) {
  std::wstring texts;
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (windowClass(child) == WC_LISTVIEWW) {
      texts += rowTexts(child);
    } else if (!isPushButton(child)) {
      texts += L' ' + std::to_wstring(GetDlgCtrlID(child)) + L'=' + wb::quoted(windowTitle(child));
    }
  }
  return texts;
}

std::wstring allTexts(HWND dialog) {
  std::wstring texts = wb::quoted(windowTitle(dialog)) + controlTexts(dialog);
  for (const HWND button : pushButtons(dialog)) texts += L' ' + wb::quoted(windowTitle(button));
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (windowClass(child) != WC_LISTVIEWW) continue;
    for (int column = 0; column < Header_GetItemCount(ListView_GetHeader(child)); ++column) {
      wchar_t heading[256] = L"";
      LVCOLUMNW asked{};
      asked.mask = LVCF_TEXT;
      asked.pszText = heading;
      asked.cchTextMax = static_cast<int>(std::size(heading));
      SendMessageW(child, LVM_GETCOLUMNW, static_cast<WPARAM>(column),
                   reinterpret_cast<LPARAM>(&asked));
      texts += L' ' + wb::quoted(heading);
    }
  }
  return texts;
}

std::wstring placeOf(HWND dialog) {
  RECT own{}, around{}, common{};
  GetWindowRect(dialog, &own);
  GetWindowRect(GetWindow(dialog, GW_OWNER), &around);
  const auto isMiddle = [](LONG first, LONG second) { return std::abs(first - second) <= 1; };
  if (isMiddle(own.left + own.right - around.left, around.right) &&
      isMiddle(own.top + own.bottom - around.top, around.bottom)) {
    return L"in the middle of its owner";
  }
  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoW(MonitorFromWindow(dialog, MONITOR_DEFAULTTONEAREST), &monitor);
  IntersectRect(&common, &own, &monitor.rcWork);
  return EqualRect(&common, &own) ? L"whole on the screen" : L"partly off the screen";
}

std::vector<HWND> pushButtons(HWND dialog) {
  std::vector<HWND> buttons;
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (isPushButton(child) && (GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE)) {
      buttons.push_back(child);
    }
  }
  return buttons;
}

HWND findControl(HWND dialog, int id) {
  if (const HWND direct = GetDlgItem(dialog, id)) return direct;
  ControlSearch search{id, nullptr};
  EnumChildWindows(dialog, matchControl, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND findButton(HWND dialog, std::wstring_view name) {
  for (const NamedButton& button : namedButtons) {
    if (!sameName(name, button.name)) continue;
    const HWND found = GetDlgItem(dialog, button.id);
    if (found && (GetWindowLongPtrW(found, GWL_STYLE) & WS_VISIBLE)) return found;
    // A box with nothing but OK may carry it under IDCANCEL, so that Escape closes it.
    const std::vector<HWND> all = pushButtons(dialog);
    if (button.id == IDOK && all.size() == 1 && !messageBoxText(dialog).empty()) return all[0];
    return nullptr;
  }
  wchar_t* end = nullptr;
  const std::wstring text(name);
  const long id = std::wcstol(text.c_str(), &end, 10);
  return text.empty() || *end ? nullptr : findControl(dialog, static_cast<int>(id));
}

HWND leastButton(HWND dialog) {
  if (const HWND cancel = findButton(dialog, L"cancel")) return cancel;
  if (const HWND no = findButton(dialog, L"no")) return no;
  const std::vector<HWND> all = pushButtons(dialog);
  return all.size() == 1 ? all[0] : nullptr;
}

std::wstring buttonName(int id) {
  for (const NamedButton& button : namedButtons) {
    if (button.id == id) return button.name;
  }
  return std::to_wstring(id);
}

std::wstring messageBoxFlags(UINT flags) {
  static constexpr const wchar_t* kinds[] = {
      L"MB_OK",    L"MB_OKCANCEL",    L"MB_ABORTRETRYIGNORE", L"MB_YESNOCANCEL",
      L"MB_YESNO", L"MB_RETRYCANCEL", L"MB_CANCELTRYCONTINUE"};
  static constexpr const wchar_t* icons[] = {nullptr, L"MB_ICONERROR", L"MB_ICONQUESTION",
                                             L"MB_ICONWARNING", L"MB_ICONINFORMATION"};
  static constexpr const wchar_t* defaults[] = {nullptr, L"MB_DEFBUTTON2", L"MB_DEFBUTTON3",
                                                L"MB_DEFBUTTON4"};
  std::wstring text;
  UINT rest = flags;
  const auto name = [&](UINT mask, unsigned shift, const wchar_t* const* names, size_t count) {
    const UINT value = (flags & mask) >> shift;
    if (value >= count) return;
    rest &= ~mask;
    if (!names[value]) return;
    if (!text.empty()) text += L'|';
    text += names[value];
  };
  name(MB_TYPEMASK, 0, kinds, std::size(kinds));
  name(MB_ICONMASK, 4, icons, std::size(icons));
  name(MB_DEFMASK, 8, defaults, std::size(defaults));
  if (rest) {
    wchar_t number[16];
    std::swprintf(number, std::size(number), L"0x%X", rest);
    text += (text.empty() ? L"" : L"|") + std::wstring(number);
  }
  return text;
}

}  // namespace wb
