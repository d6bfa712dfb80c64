#include <windows.h>

#include <algorithm>

#include "core/RegistrySettings.h"
#include "core/Transcript.h"
#include "scripting/Directives.h"
#include "store/Store.h"

namespace wb {
namespace {

std::wstring viewPath(Arguments& arguments) { return windowsPath(arguments.word()); }

void create(ScriptContext& context, Arguments& arguments) {
  const std::wstring name = arguments.word();
  store().createVault(name, windowsPath(arguments.textUntil()));
  context.vaults.push_back(name);
}

/// The end of `add` and `newversion`, in any order; a comment is the rest of the line.
struct NewVersion {
  explicit NewVersion(Arguments& arguments) {
    const std::vector<std::wstring_view> keywords{L"from", L"user", L"comment"};
    path = windowsPath(arguments.textUntil(keywords));
    while (!arguments.atEnd()) {
      if (arguments.take(L"from")) {
        from = windowsPath(arguments.textUntil(keywords));
      } else if (arguments.take(L"user")) {
        user = arguments.textUntil(keywords);
      } else if (arguments.take(L"comment")) {
        comment = arguments.textUntil();
      } else {
        arguments.end();
      }
    }
  }
  std::wstring path;
  std::wstring from;
  std::wstring user = Store::thisUser();
  std::wstring comment;
};

void add(ScriptContext&, Arguments& arguments) {
  const NewVersion version(arguments);
  store().add(version.path, version.from, version.user, version.comment);
}

void newVersion(ScriptContext&, Arguments& arguments) {
  const NewVersion version(arguments);
  if (version.from.empty()) arguments.fail(L"`from FILE` is missing");
  store().addVersion(version.path, version.from, version.user, version.comment);
}

void checkOut(ScriptContext&, Arguments& arguments) {
  const std::vector<std::wstring_view> keywords{L"user", L"computer", L"folder"};
  const std::wstring path = windowsPath(arguments.textUntil(keywords));
  if (arguments.atEnd()) return store().checkOut(path);
  std::wstring user = Store::thisUser();
  std::wstring computer = Store::thisComputer();
  std::wstring folder = path.substr(0, path.rfind(L'\\'));
  while (!arguments.atEnd()) {
    if (arguments.take(L"user")) {
      user = arguments.textUntil(keywords);
    } else if (arguments.take(L"computer")) {
      computer = arguments.textUntil(keywords);
    } else if (arguments.take(L"folder")) {
      folder = arguments.textUntil(keywords);
    } else {
      arguments.end();
    }
  }
  store().checkOutFor(path, user, computer, folder);
}

void undo(ScriptContext&, Arguments& arguments) {
  store().undoCheckOut(windowsPath(arguments.textUntil()));
}

/// The client notes for each vault whether it works without its server.
void offline(ScriptContext& context, Arguments& arguments) {
  const DWORD isOffline = arguments.onOff() ? 1 : 0;
  std::vector<std::wstring> vaults = context.vaults;
  if (!arguments.atEnd()) vaults = {arguments.textUntil()};
  if (vaults.empty()) arguments.fail(L"this session made no vault, so name one");
  for (const std::wstring& vault : vaults) {
    if (!store().vaultNamed(vault)) throw ScriptError(L"there is no vault " + wb::quoted(vault));
    const SettingName name{HKEY_CURRENT_USER,
                           L"Software\\Halvern\\Applications\\Quillstone Suite\\Vaults\\" + vault,
                           L"Offline"};
    const LSTATUS status = writeSetting(name, REG_DWORD, &isOffline, sizeof(isOffline));
    if (status == ERROR_SUCCESS) continue;
    throw ScriptError(L"the vault's setting can't be written, Windows error " +
                      std::to_wstring(status));
  }
}

void exempt(ScriptContext&, Arguments& arguments) {
  const std::wstring path = viewPath(arguments);
  store().setExempt(path, arguments.onOff());
  arguments.end();
}

void setState(ScriptContext&, Arguments& arguments) {
  const std::wstring path = viewPath(arguments);
  store().setState(path, arguments.textUntil());
}

void card(ScriptContext&, Arguments& arguments) {
  const std::wstring path = viewPath(arguments);
  const std::wstring variable = arguments.word();
  const std::wstring configuration = arguments.word();
  CardValue value{L"text", {}};
  if (!arguments.atEnd() && !arguments.take(L"type")) {
    value.text = arguments.textUntil({L"type"});
    if (!arguments.atEnd()) arguments.take(L"type");
  }
  if (!arguments.atEnd()) value.type = arguments.word();
  arguments.end();
  store().setCardValue(path, variable, configuration, value);
}

void map(ScriptContext&, Arguments& arguments) {
  const std::wstring path = viewPath(arguments);
  const std::wstring variable = arguments.word();
  CardMapping mapping;
  mapping.block = arguments.word();
  mapping.tag = arguments.word();
  arguments.end();
  store().addMapping(path, variable, mapping);
}

void deny(ScriptContext&, Arguments& arguments) {
  const std::wstring path = windowsPath(arguments.textUntil({L"on", L"off"}));
  store().setDenied(path, arguments.atEnd() || arguments.onOff());
  arguments.end();
}

/// A date of the vault, "2006-03-30 14:20:10", in universal time.
void date(ScriptContext&, Arguments& arguments) {
  const std::wstring path = viewPath(arguments);
  const std::wstring text = arguments.textUntil();
  SYSTEMTIME time{};
  wchar_t rest = 0;
  FILETIME stamp{};
  const int fields =
      swscanf(text.c_str(), L"%4hu-%2hu-%2hu %2hu:%2hu:%2hu%lc", &time.wYear, &time.wMonth,
              &time.wDay, &time.wHour, &time.wMinute, &time.wSecond, &rest);
  if (fields != 6 || !SystemTimeToFileTime(&time, &stamp)) {
    arguments.fail(wb::quoted(text) + L" is no date");
  }
  store().setDate(path, stamp);
}

void fetch(ScriptContext&, Arguments& arguments) {
  const std::wstring path = viewPath(arguments);
  const int version = arguments.atEnd() ? 0 : arguments.number();
  arguments.end();
  store().fetch(path, version);
}

void show(ScriptContext&, Arguments& arguments) {
  for (const std::wstring& line : store().describe(windowsPath(arguments.textUntil()))) {
    tell(Event::file, line);
  }
}

struct Subcommand {
  const wchar_t* name;
  void (*run)(ScriptContext&, Arguments&);
};

constexpr Subcommand subcommands[] = {
    {L"create", create},     {L"add", add},        {L"newversion", newVersion},
    {L"checkout", checkOut}, {L"undo", undo},      {L"offline", offline},
    {L"exempt", exempt},     {L"state", setState}, {L"card", card},
    {L"map", map},           {L"deny", deny},      {L"date", date},
    {L"fetch", fetch},       {L"show", show},
};

void vault(ScriptContext& context, Arguments& arguments) {
  const std::wstring name = arguments.word();
  for (const Subcommand& subcommand : subcommands) {
    if (name == subcommand.name) return subcommand.run(context, arguments);
  }
  arguments.fail(wb::quoted(name) + L" is nothing that is done to a vault");
}

}  // namespace

std::vector<Directive> vaultDirectives() {
  return {{L"vault",
           L"@vault create NAME ROOT | add PATH [from FILE] [user U] [comment T]"
           L" | newversion PATH from FILE [user U] [comment T]"
           L" | checkout PATH [user U] [computer C] [folder F] | undo PATH"
           L" | offline on|off [NAME] | exempt PATH on|off | state PATH NAME"
           L" | card PATH VAR CONFIG VALUE [type T] | map PATH VAR BLOCK TAG"
           L" | deny PATH [on|off] | date PATH YYYY-MM-DD HH:MM:SS | fetch PATH [VERSION]"
           L" | show PATH",
           vault, true}};
}

}  // namespace wb
