#include "desk/Choices.h"

#include <filesystem>

#include "core/SessionState.h"
#include "database/Drawing.h"
#include "editor/Host.h"
#include "scripting/Session.h"
#include "store/Store.h"

namespace wb {

namespace {

constexpr wchar_t drawingMenu[] = L"&Drawing";
constexpr wchar_t moduleMenu[] = L"&Tessaro";
constexpr wchar_t othersMenu[] = L"&Other people";
constexpr wchar_t clientMenu[] = L"&Client";
constexpr wchar_t somebody[] = L"mary";

class Listing {
 public:
  explicit Listing(const ScriptContext& context) : context(context) {}

  std::vector<Choice> make() {
    eachFile([this](const StoredFile& file, const std::wstring& local) {
      add({drawingMenu, L"&Open from the vault"}, file.path.substr(1), L"@opendialog " + local);
    });
    addDrawing();
    addModule();
    eachFile([this](const StoredFile& file, const std::wstring& local) { addOthers(file, local); });
    addClient();
    return std::move(all);
  }

 private:
  void add(std::vector<std::wstring> menus, const std::wstring& text, const std::wstring& line,
           bool enabled = true, bool checked = false) {
    all.push_back({std::move(menus), text, line, checked, !enabled});
  }

  template <class Visit>
  void eachFile(Visit visit) const {
    for (const std::wstring& name : context.vaults) {
      const StoredVault* vault = store().vaultNamed(name);
      if (!vault) continue;
      for (const auto& [path, file] : vault->files) visit(file, vault->localPath(file));
    }
  }

  void addOthers(const StoredFile& file, const std::wstring& local) {
    const std::vector<std::wstring> menus{othersMenu, file.path.substr(1)};
    const std::wstring path = L"\"" + local + L"\"";
    add(menus, L"Mary stores a &new version", newVersion(file, local));
    add(menus, L"Mary checks it &out",
        L"@vault checkout " + path + L" user " + somebody + L" computer DRAFTING2 folder D:\\Plant",
        !file.holder);
    add(menus, L"The check-out is &undone", L"@vault undo " + local, file.holder.has_value());
    add(menus, L"&Show what the vault knows", L"@vault show " + local);
  }

  /// The content that is prepared under the file's name, or its own once more.
  std::wstring newVersion(const StoredFile& file, const std::wstring& local) const {
    const std::filesystem::path prepared =
        std::filesystem::path(context.options.drawings) / L"Revised" / file.name();
    std::error_code ignored;
    const bool there = std::filesystem::exists(prepared, ignored);
    return L"@vault newversion \"" + local + L"\" from " + L"\"" +
           (there ? prepared.wstring() : local) + L"\"" + L" user " + somebody + L" comment " +
           (there ? L"Widened" : L"Looked through");
  }

  void addDrawing() {
    const Document* active = Host::instance().documents().active();
    const bool open = active != nullptr;
    add({drawingMenu}, L"Open &file...", L"_OPEN");
    add({drawingMenu}, L"&New", L"@new");
    add({drawingMenu}, {}, {});
    add({drawingMenu}, L"&Change it (a remark)", L"@edit", open);
    add({drawingMenu}, L"&Save", L"_QSAVE", open);
    add({drawingMenu}, L"C&lose", L"_CLOSE", open);
    if (open) {
      const Drawing& drawing = *active->drawing();
      for (const std::wstring& name : drawing.layouts()) {
        add({drawingMenu, L"La&yout"}, name, L"@layout " + name, true,
            name == drawing.currentLayout());
      }
    }
    add({drawingMenu}, {}, {});
    add({drawingMenu}, L"&Quit", L"_QUIT");
  }

  void addModule() {
    bool loaded = false;
    for (const Command& command : Host::instance().commands().all()) {
      if (!command.address) continue;
      loaded = true;
      add({moduleMenu}, command.local, L"_" + command.global);
    }
    if (loaded) add({moduleMenu}, {}, {});
    add({moduleMenu}, L"Status &window's timer runs out now", L"@tick", loaded);
    add({moduleMenu}, L"&Load the module", L"@load", !loaded);
    add({moduleMenu}, L"&Unload the module", L"@unload", loaded);
  }

  void addClient() {
    const bool german = clientCondition().language.has_value();
    add({clientMenu}, L"Is &missing", L"@client missing");
    add({clientMenu}, L"Is &present", L"@client present");
    add({clientMenu}, {}, {});
    add({clientMenu}, L"Goes o&ffline", L"@vault offline on", !context.vaults.empty());
    add({clientMenu}, L"Goes o&nline", L"@vault offline off", !context.vaults.empty());
    add({clientMenu}, {}, {});
    add({clientMenu}, L"&German texts when the module is loaded next",
        german ? L"@client language default"
               : L"@client language %DRAWINGS%\\..\\client\\language-de.txt",
        true, german);
  }

  const ScriptContext& context;
  std::vector<Choice> all;
};

}  // namespace

std::vector<Choice> choices(const ScriptContext& context) { return Listing(context).make(); }

}  // namespace wb
