#include "desk/Desk.h"

#include <commctrl.h>
#include <commdlg.h>

#include <map>
#include <stdexcept>
#include <utility>

#include "core/Text.h"
#include "core/Transcript.h"
#include "database/Drawing.h"
#include "editor/FileSelection.h"
#include "editor/Host.h"
#include "editor/Selection.h"
#include "scripting/Script.h"

namespace wb {

namespace {

constexpr UINT firstChoice = 0x100;
constexpr wchar_t escapeKey[] = L"\x1B";
constexpr int tabHeight = 24, inputHeight = 24;

std::optional<std::wstring> askForFile(int flags) {
  wchar_t file[MAX_PATH] = L"";
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = Host::instance().mainWindow();
  dialog.lpstrFilter = L"Drawings (*.dxf)\0*.dxf\0";
  dialog.lpstrFile = file;
  dialog.nMaxFile = MAX_PATH;
  dialog.lpstrDefExt = L"dxf";
  dialog.Flags = OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST;
  const bool saves = flags == FileSelection::saveFlags;
  if (saves ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog)) return file;
  return std::nullopt;
}

HMENU menuBar(const std::vector<Choice>& choices) {
  const HMENU bar = CreateMenu();
  std::map<std::vector<std::wstring>, HMENU> menus{{{}, bar}};
  for (size_t at = 0; at < choices.size(); ++at) {
    const Choice& choice = choices[at];
    HMENU into = bar;
    for (size_t depth = 1; depth <= choice.menus.size(); ++depth) {
      HMENU& menu =
          menus[{choice.menus.begin(), choice.menus.begin() + static_cast<std::ptrdiff_t>(depth)}];
      if (!menu) {
        menu = CreatePopupMenu();
        AppendMenuW(into, MF_POPUP, reinterpret_cast<UINT_PTR>(menu),
                    choice.menus[depth - 1].c_str());
      }
      into = menu;
    }
    const UINT state = (choice.text.empty() ? MF_SEPARATOR : MF_STRING) |
                       (choice.checked ? MF_CHECKED : 0) | (choice.grayed ? MF_GRAYED : 0);
    AppendMenuW(into, state, firstChoice + at, choice.text.c_str());
  }
  return bar;
}

/// What the vault says of a file, for a person who asked.
bool isAnswer(const std::wstring& line) {
  return line.rfind(L"file: ", 0) == 0 && line.rfind(L"file: picture", 0) != 0;
}

/// How a person finds a choice: "Menu > Item".
std::wstring wayTo(const Choice& choice) {
  std::wstring way;
  for (const std::wstring& menu : choice.menus) way += menu + L" > ";
  way += choice.text;
  way.erase(std::remove(way.begin(), way.end(), L'&'), way.end());
  return way;
}

/// What the tab of a document says.
std::wstring tabText(const Document& document) {
  const std::wstring title = document.title();
  const bool changed = document.drawing()->dbmod() != 0;
  return title.substr(title.find_last_of(L"\\/") + 1) + (changed ? L" *" : L"");
}

}  // namespace

Desk::Desk(ScriptContext& context) : context(context) {
  Host& host = Host::instance();
  const HWND parent = host.mainWindow();
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TAB_CLASSES};
  InitCommonControlsEx(&classes);
  tabs = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | TCS_FOCUSNEVER, 0, 0, 0, 0,
                         parent, nullptr, instance, nullptr);
  input = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 0,
                          0, 0, 0, parent, nullptr, instance, nullptr);
  if (!tabs || !input) throw std::runtime_error("the desk's controls can't be made");
  const auto font = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
  for (const HWND control : {tabs, input}) SendMessageW(control, WM_SETFONT, font, TRUE);
  SetWindowSubclass(input, inputProcedure, 0, reinterpret_cast<DWORD_PTR>(this));
  host.window().addRow(tabs, true, tabHeight);
  host.window().addRow(input, false, inputHeight);
  host.window().onMessage = [this](UINT message, WPARAM wParam, LPARAM lParam) {
    return handle(message, wParam, lParam);
  };
  host.window().view().onClick = [this](AcDbObjectId id) {
    if (!waits) return Selection::instance().click(id);
    if (!id.isNull()) enter(Selection::nameOf(id));
  };
  host.window().view().onMenu = [this](POINT place) {
    if (waits) return enter({});
    Host::instance().menus().show(place);
  };
  FileSelection::instance().ask = askForFile;
  host.window().write(
      L"Open a drawing by Drawing > Open from the vault. A click picks an xref, the right button "
      L"opens its menu, the wheel zooms.");
  SetFocus(input);
}

Desk::~Desk() {
  MainWindow& window = Host::instance().window();
  window.onMessage = nullptr;
  window.view().onClick = nullptr;
  window.view().onMenu = nullptr;
  FileSelection::instance().ask = nullptr;
  RemoveWindowSubclass(input, inputProcedure, 0);
}

void Desk::run() {
  Host& host = Host::instance();
  host.runUntilIdle();
  refresh();
  while (!host.quitRequested()) {
    if (const auto tab = std::exchange(chosenTab, std::nullopt)) {
      host.activate(*tab);
    } else if (lines.empty()) {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, INFINITE, QS_ALLINPUT);
      host.runUntilIdle();
    } else {
      const std::wstring line = lines.front();
      lines.pop_front();
      runLine(line, false);
    }
    refresh();
  }
}

bool Desk::supplyInput() {
  waits = true;
  cancelled = false;
  bool supplied = false;
  Host& host = Host::instance();
  while (!supplied && !cancelled && !host.quitRequested()) {
    if (lines.empty()) {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, INFINITE, QS_ALLINPUT);
      host.pumpMessages();
      continue;
    }
    const std::wstring line = lines.front();
    lines.pop_front();
    supplied = line.empty() || line[0] != L'@';
    runLine(line, true);
  }
  waits = false;
  if (!cancelled) return supplied;
  host.type(escapeKey);
  return true;
}

void Desk::enter(std::wstring line) { lines.push_back(std::move(line)); }

void Desk::runLine(const std::wstring& line, bool commandWaits) {
  const size_t since = Transcript::instance().lines().size();
  try {
    if (!line.empty()) {
      runScriptLine(context, line, commandWaits);
    } else if (commandWaits) {
      Host::instance().type({});
    }
  } catch (const std::exception& error) {
    report(Event::error, fromUtf8(error.what()));
  }
  showWhatWentWrong(since);
}

// The transcript is printed where the program was started; who sits here looks at the window.
void Desk::showWhatWentWrong(size_t since) const {
  const std::vector<std::wstring>& told = Transcript::instance().lines();
  for (size_t at = since; at < told.size(); ++at) {
    const bool shows = told[at].rfind(L"error: ", 0) == 0 || isAnswer(told[at]) ||
                       told[at].find(L"refused") != std::wstring::npos;
    if (shows) Host::instance().window().write(told[at]);
  }
}

bool Desk::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND: {
      const size_t at = LOWORD(wParam) - size_t{firstChoice};
      if (lParam != 0 || HIWORD(wParam) != 0 || at >= shown.size()) return false;
      Host::instance().window().write(wayTo(shown[at]));
      enter(shown[at].line);
      return true;
    }
    case WM_NOTIFY: {
      const auto* note = reinterpret_cast<const NMHDR*>(lParam);
      if (note->hwndFrom != tabs || note->code != TCN_SELCHANGE) return false;
      const auto at = static_cast<size_t>(TabCtrl_GetCurSel(tabs));
      if (at < tabTitles.size()) chosenTab = tabTitles[at];
      return true;
    }
    case WM_CLOSE:
      // Changes are asked about.
      enter(L"_QUIT");
      return true;
    default:
      return false;
  }
}

LRESULT CALLBACK Desk::inputProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR, DWORD_PTR self) {
  if (message == WM_KEYDOWN && reinterpret_cast<Desk*>(self)->handleKey(wParam)) return 0;
  // The control would beep.
  if (message == WM_CHAR && (wParam == VK_RETURN || wParam == VK_ESCAPE)) return 0;
  return DefSubclassProc(control, message, wParam, lParam);
}

bool Desk::handleKey(WPARAM key) {
  switch (key) {
    case VK_RETURN: {
      std::wstring line(static_cast<size_t>(GetWindowTextLengthW(input)) + 1, L'\0');
      line.resize(
          static_cast<size_t>(GetWindowTextW(input, line.data(), static_cast<int>(line.size()))));
      SetWindowTextW(input, L"");
      Host::instance().window().write(L"Command: " + line);
      if (!line.empty()) history.push_back(line);
      recalled = history.size();
      enter(line);
      return true;
    }
    case VK_UP:
      if (recalled > 0) recall(recalled - 1);
      return true;
    case VK_DOWN:
      if (recalled < history.size()) recall(recalled + 1);
      return true;
    case VK_ESCAPE:
      SetWindowTextW(input, L"");
      cancelled = true;
      if (!waits) Selection::instance().click(AcDbObjectId());
      return true;
    default:
      return false;
  }
}

void Desk::recall(size_t line) {
  recalled = line;
  const std::wstring text = line < history.size() ? history[line] : std::wstring();
  SetWindowTextW(input, text.c_str());
  SendMessageW(input, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
}

void Desk::refresh() {
  refreshMenu();
  refreshTabs();
}

void Desk::refreshMenu() {
  std::vector<Choice> now = choices(context);
  if (now == shown) return;
  shown = std::move(now);
  const HWND window = Host::instance().mainWindow();
  const HMENU before = GetMenu(window);
  SetMenu(window, menuBar(shown));
  if (before) DestroyMenu(before);
}

void Desk::refreshTabs() {
  const DocumentManager& documents = Host::instance().documents();
  std::vector<std::wstring> texts;
  std::vector<std::wstring> titles;
  int active = -1;
  for (const Document* document : documents.all()) {
    if (document == documents.active()) active = static_cast<int>(texts.size());
    texts.push_back(tabText(*document));
    titles.push_back(document->title());
  }
  tabTitles = std::move(titles);
  if (texts != tabTexts) {
    tabTexts = std::move(texts);
    TabCtrl_DeleteAllItems(tabs);
    for (size_t at = 0; at < tabTexts.size(); ++at) {
      TCITEMW item{};
      item.mask = TCIF_TEXT;
      item.pszText = tabTexts[at].data();
      SendMessageW(tabs, TCM_INSERTITEMW, at, reinterpret_cast<LPARAM>(&item));
    }
  }
  if (TabCtrl_GetCurSel(tabs) != active) TabCtrl_SetCurSel(tabs, active);
}

}  // namespace wb
