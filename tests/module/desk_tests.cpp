// A person at the desk: menu commands, clicks in the drawing, in the module's window and in
// dialogs, as messages of Windows. The way is that of docs/first-steps.md.

#include <windows.h>

#include <gtest/gtest.h>

#include <deque>
#include <functional>

#include "core/Transcript.h"
#include "database/Drawing.h"
#include "desk/Desk.h"
#include "dialogs/MenuPicture.h"
#include "dialogs/Reader.h"
#include "dialogs/Screenshot.h"
#include "editor/Host.h"
#include "editor/Selection.h"
#include "shared/ModuleSession.h"
#include "store/Store.h"
#include "ui/resource.h"
#include "view/Builder.h"

namespace {

constexpr UINT tick = 30;             // milliseconds
constexpr int patience = 1000;        // ticks for one step
constexpr UINT popupHandle = 0x01E1;  // MN_GETHMENU

struct FoundWindow {
  std::function<bool(HWND)> wanted;
  HWND window = nullptr;
};

BOOL CALLBACK findWanted(HWND window, LPARAM argument) {
  auto& search = *reinterpret_cast<FoundWindow*>(argument);
  if (!IsWindowVisible(window) || !search.wanted(window)) return TRUE;
  search.window = window;
  return FALSE;
}

HWND windowWith(std::function<bool(HWND)> wanted) {
  FoundWindow search{std::move(wanted)};
  EnumThreadWindows(GetCurrentThreadId(), findWanted, reinterpret_cast<LPARAM>(&search));
  return search.window;
}

UINT boxState(int id) { return IsDlgButtonChecked(ModuleSession::statusWindow(), id); }

wb::Drawing* activeDrawing() {
  const wb::Document* active = wb::Host::instance().documents().active();
  return active ? active->drawing() : nullptr;
}

bool shows(const std::wstring& text) {
  const wb::DisplayList list = wb::displayListOf(*activeDrawing());
  return std::any_of(list.texts.begin(), list.texts.end(),
                     [&](const std::wstring& one) { return one.find(text) != std::wstring::npos; });
}

/// Finds the item of a menu with that text.
bool findItem(HMENU menu, const std::wstring& text, UINT& position) {
  const int count = GetMenuItemCount(menu);
  for (position = 0; position < static_cast<UINT>(std::max(count, 0)); ++position) {
    if (wb::menuItemText(menu, position) == text) return true;
  }
  return false;
}

/// Does one thing after the other, each as soon as it is possible, out of the loop that runs just
/// then: the desk's, a dialog's, a menu's.
class Person {
 public:
  using Step = std::function<bool()>;  ///< false if it isn't possible yet

  explicit Person(const std::wstring& pictures) : pictures(pictures) { current = this; }
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;
  ~Person() { current = nullptr; }

  void then(const char* what, Step step) { steps.push_back({what, std::move(step)}); }

  /// Chooses from the menu bar: the command that Windows sends for a click there.
  void choose(const std::vector<std::wstring>& path) {
    then("a choice of the menu", [path = path] {
      HMENU menu = GetMenu(wb::Host::instance().mainWindow());
      UINT position = 0;
      for (size_t depth = 0; depth + 1 < path.size(); ++depth) {
        if (!findItem(menu, path[depth], position)) return false;
        menu = GetSubMenu(menu, static_cast<int>(position));
      }
      if (!findItem(menu, path.back(), position)) return false;
      if (GetMenuState(menu, position, MF_BYPOSITION) & MF_GRAYED) return false;
      PostMessageW(wb::Host::instance().mainWindow(), WM_COMMAND,
                   GetMenuItemID(menu, static_cast<int>(position)), 0);
      return true;
    });
  }

  /// Clicks a button of a dialog that shows a text.
  void press(const std::wstring& text, int button) {
    then("a button", [text = text, button] {
      const HWND dialog = dialogWith(text);
      return dialog && PostMessageW(wb::findControl(dialog, button), BM_CLICK, 0, 0);
    });
  }
  static HWND dialogWith(const std::wstring& text) {
    return windowWith([&](HWND window) {
      return wb::isDialogWindow(window) && wb::allTexts(window).find(text) != std::wstring::npos;
    });
  }

  void clickStatus(int id) {
    then("a click in the status window", [id] {
      return PostMessageW(GetDlgItem(ModuleSession::statusWindow(), id), BM_CLICK, 0, 0) != FALSE;
    });
  }

  /// Clicks the drawing where a reference to the block is seen and nothing else.
  void clickReference(const std::wstring& block, UINT down, UINT up) {
    then("a click on a reference", [block = block, down, up] {
      const HWND view = wb::Host::instance().window().view().handle();
      RECT area{};
      GetClientRect(view, &area);
      const wb::DisplayList list = wb::displayListOf(*activeDrawing());
      const SIZE size{area.right, area.bottom};
      const wb::Camera camera = wb::Camera::fitting(list.extents, size);
      const AcDbObjectId wanted = activeDrawing()->entities(block).at(0);
      for (const wb::DisplayList::Reference& one : list.references) {
        if (one.id != wanted) continue;
        for (size_t at = one.first; at < one.end; ++at) {
          const wb::Point place = camera.toWindow(list.points[list.items[at].first], size);
          const POINT pixel{std::lround(place.x), std::lround(place.y)};
          const auto* hit = wb::referenceAt(pixel, size, list, camera);
          if (!hit || hit->id != wanted) continue;
          PostMessageW(view, down, 0, MAKELPARAM(pixel.x, pixel.y));
          PostMessageW(view, up, 0, MAKELPARAM(pixel.x, pixel.y));
          return true;
        }
      }
      return false;
    });
  }

  /// Chooses an item of the right-click menu. Its loop is Windows' own, which takes a pointer's
  /// place from the screen; keys reach it in any case.
  void chooseItem(const std::wstring& text) {
    then("an item of the right-click menu", [text = text] {
      const HWND popup =
          windowWith([](HWND window) { return wb::windowClass(window) == L"#32768"; });
      const auto menu = reinterpret_cast<HMENU>(SendMessageW(popup, popupHandle, 0, 0));
      UINT position = 0;
      if (!popup || !findItem(menu, text, position)) return false;
      const HWND owner = wb::Host::instance().mainWindow();
      for (UINT at = 0; at <= position; ++at) {
        const UINT state = GetMenuState(menu, at, MF_BYPOSITION);
        if (state & MF_SEPARATOR && !GetSubMenu(menu, static_cast<int>(at))) continue;
        PostMessageW(owner, WM_KEYDOWN, VK_DOWN, 1);
      }
      PostMessageW(owner, WM_KEYDOWN, VK_RETURN, 1);
      return true;
    });
  }

  void picture(const std::wstring& name) {
    then("a picture", [this, name = name] {
      busy = true;
      wb::savePicture(pictures + L"\\" + name);
      busy = false;
      return true;
    });
  }

  void work(wb::Session& session) {
    wb::Desk desk(session.context());
    const UINT_PTR timer = SetTimer(nullptr, 0, tick, onTick);
    session.interact(desk);
    KillTimer(nullptr, timer);
    EXPECT_TRUE(steps.empty()) << wb::toUtf8(session.text())
                               << "not done: " << (steps.empty() ? "" : steps.front().what);
  }

 private:
  struct Named {
    const char* what;
    Step step;
  };

  static void CALLBACK onTick(HWND, UINT, UINT_PTR, DWORD) {
    if (current && !current->busy) current->next();
  }

  void next() {
    if (!steps.empty() && waited++ < patience) {
      Named now = steps.front();
      if (!now.step()) return;
      steps.pop_front();
      waited = 0;
      return;
    }
    if (steps.empty()) return;
    // Nothing may hang: every loop is left.
    EndMenu();
    if (const HWND dialog = dialogWith({})) PostMessageW(dialog, WM_CLOSE, 0, 0);
    wb::Host::instance().requestQuit();
  }

  static inline Person* current = nullptr;
  const std::wstring pictures;
  std::deque<Named> steps;
  int waited = 0;
  bool busy = false;
};

TEST(Desk, APersonChecksOutChangesBringsUpToDateAndChecksInByMouseAlone) {
  wb::SessionOptions options = ModuleSession::options();
  options.interactive = true;
  wb::Session session(options);
  ASSERT_TRUE(session.run(bytesOf(ModuleSession::workbenchFile(L"scripts/desk.txt"))))
      << wb::toUtf8(session.text());
  const std::wstring folder = options.workFolder;
  const auto stored = [&](const wchar_t* file) -> const wb::StoredFile& {
    return *wb::store().find(folder + L"\\Plant\\" + file);
  };

  Person person(folder);
  person.choose({L"Drawing", L"Open from the vault", L"Site\\Plan.dxf"});
  person.then("the offer", [] { return Person::dialogWith(L"check out") != nullptr; });
  person.picture(L"desk-offer.png");
  person.press(L"check out", IDYES);
  person.then("the check-out", [] { return boxState(IDC_CHECKED_OUT_HERE) == BST_CHECKED; });
  person.choose({L"Drawing", L"Change it (a remark)"});
  person.then("the change", [] { return activeDrawing() && activeDrawing()->dbmod() != 0; });
  person.picture(L"desk-changed.png");

  person.choose({L"Other people", L"Xrefs\\Grid.dxf", L"Mary stores a new version"});
  person.then("Mary's version", [&] { return stored(L"Xrefs\\Grid.dxf").versions.size() == 2; });
  person.clickStatus(IDC_REFRESH);
  person.then("a stale xref", [] { return boxState(IDC_XREFS_LATEST) == BST_UNCHECKED; });
  person.picture(L"desk-stale.png");
  person.clickStatus(IDC_XREFS_LATEST);
  person.then("the new grid", [] { return boxState(IDC_XREFS_LATEST) == BST_CHECKED; });
  person.then("it is seen", [] { return shows(L"REV B"); });
  person.picture(L"desk-latest.png");

  person.clickReference(L"Building", WM_LBUTTONDOWN, WM_LBUTTONUP);
  person.then("it is picked", [] { return wb::Selection::instance().picked().size() == 1; });
  person.clickReference(L"Building", WM_RBUTTONDOWN, WM_RBUTTONUP);
  person.then("the menu", [] {
    return windowWith([](HWND window) { return wb::windowClass(window) == L"#32768"; }) != nullptr;
  });
  person.picture(L"desk-menu.png");
  person.chooseItem(L"Tessaro Properties...");
  person.press(L"Building", IDOK);

  person.choose({L"Drawing", L"Layout", L"Layout1"});
  person.choose({L"Tessaro", L"Tessaro_update"});
  person.then("the title", [] { return shows(L"Pump house"); });
  person.picture(L"desk-title.png");

  person.clickStatus(IDC_CHECKED_OUT_HERE);
  person.press(L"This will save", IDYES);
  person.then("the client's dialog", [] { return Person::dialogWith(L"Check in") != nullptr; });
  person.picture(L"desk-check-in.png");
  person.press(L"Check in", IDOK);
  person.then("the check-in", [&] { return stored(L"Site\\Plan.dxf").versions.size() == 2; });
  person.then("its closing", [] { return activeDrawing() == nullptr; });
  person.picture(L"desk-end.png");
  person.choose({L"Drawing", L"Quit"});
  person.work(session);

  EXPECT_FALSE(stored(L"Site\\Plan.dxf").holder) << "still checked out";
  session.end();
  EXPECT_EQ(session.count(L"leak: "), 0);
  EXPECT_EQ(session.count(L"error: "), 0) << wb::toUtf8(session.text());
}

}  // namespace
