#include "dialogs/Reader.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <iterator>

#include "core/Lists.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "ui/resource.h"

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
  const LONG_PTR kind = GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK;
  return kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON || kind == BS_OWNERDRAW;
}

bool isUsable(HWND control) {
  const std::wstring type = windowClass(control);
  const bool groupBox = (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
  return !sameName(type, L"Static") && !(sameName(type, L"Button") && groupBox);
}

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

std::wstring headings(HWND list) {
  std::wstring texts;
  for (int column = 0; column < Header_GetItemCount(ListView_GetHeader(list)); ++column) {
    wchar_t heading[256] = L"";
    LVCOLUMNW asked{};
    asked.mask = LVCF_TEXT;
    asked.pszText = heading;
    asked.cchTextMax = static_cast<int>(std::size(heading));
    SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&asked));
    texts += L' ' + wb::quoted(heading);
  }
  return texts;
}

}  // namespace

std::vector<HWND> threadWindows() {
  std::vector<HWND> windows;
  const auto add = [](HWND window, LPARAM all) -> BOOL {
    reinterpret_cast<std::vector<HWND>*>(all)->push_back(window);
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

std::vector<HWND> children(HWND window) {
  std::vector<HWND> all;
  for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    all.push_back(child);
  }
  return all;
}

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

HWND findStatusWindow() {
  const std::vector<HWND> windows = threadWindows();
  const HWND* found = findIf(windows, [](HWND window) {
    return isDialogWindow(window) && GetDlgItem(window, IDC_XREFS_LATEST) &&
           GetDlgItem(window, IDC_CHECKED_OUT_HERE) && GetDlgItem(window, IDC_VERSION) &&
           GetDlgItem(window, IDC_REFRESH);
  });
  return found ? *found : nullptr;
}

bool isDialogWindow(HWND window) {
  return windowClass(window) == L"#32770" && (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) == 0;
}

bool looksModal(HWND dialog) {
  const HWND owner = GetWindow(dialog, GW_OWNER);
  return owner == nullptr || !IsWindowEnabled(owner);
}

bool hasControls(HWND dialog) {
  const std::vector<HWND> all = children(dialog);
  return std::any_of(all.begin(), all.end(), isUsable);
}

std::wstring messageBoxText(HWND dialog) {
  constexpr int lastBoxButton = 11;  // IDCONTINUE
  std::wstring text;
  for (const HWND child : children(dialog)) {
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

std::wstring controlTexts(HWND dialog) {
  std::wstring texts;
  for (const HWND child : children(dialog)) {
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
  for (const HWND child : children(dialog)) {
    if (windowClass(child) == WC_LISTVIEWW) texts += headings(child);
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
  for (const HWND child : children(dialog)) {
    if (isPushButton(child) && (GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE)) {
      buttons.push_back(child);
    }
  }
  return buttons;
}

HWND onlyButton(HWND dialog) {
  const std::vector<HWND> all = pushButtons(dialog);
  return all.size() == 1 ? all[0] : nullptr;
}

HWND findControl(HWND dialog, int id) {
  HWND found = GetDlgItem(dialog, id);
  for (const HWND child : children(dialog)) {
    if (!found) found = findControl(child, id);
  }
  return found;
}

HWND findButton(HWND dialog, std::wstring_view name) {
  for (const NamedButton& button : namedButtons) {
    if (!sameName(name, button.name)) continue;
    const HWND found = GetDlgItem(dialog, button.id);
    if (found && (GetWindowLongPtrW(found, GWL_STYLE) & WS_VISIBLE)) return found;
    // A box with nothing but OK may carry it under IDCANCEL, so that Escape closes it.
    return button.id == IDOK && !messageBoxText(dialog).empty() ? onlyButton(dialog) : nullptr;
  }
  wchar_t* end = nullptr;
  const std::wstring text(name);
  const long id = std::wcstol(text.c_str(), &end, 10);
  return text.empty() || *end ? nullptr : findControl(dialog, static_cast<int>(id));
}

HWND leastButton(HWND dialog) {
  if (const HWND cancel = findButton(dialog, L"cancel")) return cancel;
  if (const HWND no = findButton(dialog, L"no")) return no;
  return onlyButton(dialog);
}

std::wstring buttonName(int id) {
  for (const NamedButton& button : namedButtons) {
    if (button.id == id) return button.name;
  }
  return std::to_wstring(id);
}

std::wstring messageBoxFlags(UINT flags) {
  struct Field {
    UINT mask;
    unsigned shift;
    std::vector<const wchar_t*> names;  ///< by value; empty for what isn't worth a word
  };
  static const Field fields[] = {
      {MB_TYPEMASK,
       0,
       {L"MB_OK", L"MB_OKCANCEL", L"MB_ABORTRETRYIGNORE", L"MB_YESNOCANCEL", L"MB_YESNO",
        L"MB_RETRYCANCEL", L"MB_CANCELTRYCONTINUE"}},
      {MB_ICONMASK,
       4,
       {L"", L"MB_ICONERROR", L"MB_ICONQUESTION", L"MB_ICONWARNING", L"MB_ICONINFORMATION"}},
      {MB_DEFMASK, 8, {L"", L"MB_DEFBUTTON2", L"MB_DEFBUTTON3", L"MB_DEFBUTTON4"}}};
  std::wstring text;
  UINT rest = flags;
  const auto add = [&](const wchar_t* name) {
    if (*name) text += (text.empty() ? L"" : L"|") + std::wstring(name);
  };
  for (const auto& [mask, shift, names] : fields) {
    const UINT value = (flags & mask) >> shift;
    if (value >= names.size()) continue;
    rest &= ~mask;
    add(names[value]);
  }
  if (rest) add(hexText(rest).c_str());
  return text;
}

}  // namespace wb
