// The vault, the client, faults on demand, and settings.

#include <windows.h>

#include <algorithm>
#include <cwchar>
#include <map>

#include "core/RegistrySettings.h"
#include "core/ResultCodes.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "faults/Faults.h"
#include "scripting/Directives.h"
#include "scripting/Session.h"
#include "store/Store.h"

namespace wb {
namespace {

/// A file of a view.
struct ViewPath : std::wstring {
  explicit ViewPath(Arguments& arguments) : std::wstring(windowsPath(arguments.word())) {}
};

/// Reads the texts behind keywords in any order, to the end of the line; a comment has the rest of
/// it.
/// @param texts what each keyword stands for without one
void readKeywords(Arguments& arguments, std::map<std::wstring_view, std::wstring*> texts) {
  std::vector<std::wstring_view> keywords;
  keywords.reserve(texts.size());
  for (const auto& [keyword, text] : texts) keywords.push_back(keyword);
  while (!arguments.atEnd()) {
    const auto found = std::find_if(keywords.begin(), keywords.end(),
                                    [&](std::wstring_view one) { return arguments.take(one); });
    if (found == keywords.end()) return arguments.end();
    *texts[*found] = *found == L"comment" ? arguments.textUntil() : arguments.textUntil(keywords);
  }
}

struct NewVersion {
  explicit NewVersion(Arguments& arguments)
      : path(arguments.pathUntil({L"from", L"user", L"comment"})) {
    readKeywords(arguments, {{L"from", &from}, {L"user", &user}, {L"comment", &comment}});
    if (!from.empty()) from = windowsPath(from);
  }
  std::wstring path;
  std::wstring from;
  std::wstring user = Store::thisUser();
  std::wstring comment;
};

void newVersion(Arguments& arguments) {
  const NewVersion version(arguments);
  if (version.from.empty()) arguments.fail(L"`from FILE` is missing");
  store().addVersion(version.path, version.from, version.user, version.comment);
}

void checkOut(Arguments& arguments) {
  const std::wstring path = arguments.pathUntil({L"user", L"computer", L"folder"});
  if (arguments.atEnd()) return store().checkOut(path);
  std::wstring user = Store::thisUser();
  std::wstring computer = Store::thisComputer();
  std::wstring folder = path.substr(0, path.rfind(L'\\'));
  readKeywords(arguments, {{L"user", &user}, {L"computer", &computer}, {L"folder", &folder}});
  store().checkOutFor(path, user, computer, folder);
}

void requireSuccess(LSTATUS status, const std::wstring& setting) {
  if (status == ERROR_SUCCESS) return;
  throw ScriptError(L"the setting " + wb::quoted(setting) + L" can't be changed, Windows error " +
                    std::to_wstring(status));
}

/// The client keeps a setting for each vault that works without its server.
void setOffline(ScriptContext& context, Arguments& arguments) {
  const DWORD isOffline = arguments.onOff() ? 1 : 0;
  std::vector<std::wstring> vaults = context.vaults;
  if (!arguments.atEnd()) vaults = {arguments.textUntil()};
  if (vaults.empty()) arguments.fail(L"this session made no vault, so name one");
  for (const std::wstring& vault : vaults) {
    if (!store().vaultNamed(vault)) throw ScriptError(L"there is no vault " + wb::quoted(vault));
    const SettingName name{HKEY_CURRENT_USER,
                           L"Software\\Halvern\\Applications\\Quillstone Suite\\Vaults\\" + vault,
                           L"Offline"};
    requireSuccess(writeSetting(name, REG_DWORD, &isOffline, sizeof(isOffline)), vault);
  }
}

struct TypedValue : CardValue {
  explicit TypedValue(Arguments& arguments) : CardValue{L"text", {}} {
    if (!arguments.atEnd() && !arguments.take(L"type")) {
      text = arguments.textUntil({L"type"});
      arguments.take(L"type");
    }
    if (!arguments.atEnd()) type = arguments.word();
  }
};

/// A date of the vault, "2006-03-30 14:20:10", in universal time.
void setDate(Arguments& arguments) {
  const ViewPath path(arguments);
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

std::vector<Directive> subcommands() {
  return {
      {L"create",
       [](ScriptContext& context, const std::wstring& name, const RestPath& root) {
         store().createVault(name, root);
         context.vaults.push_back(name);
       }},
      {L"add",
       [](const NewVersion& version) {
         store().add(version.path, version.from, version.user, version.comment);
       }},
      {L"newversion", newVersion},
      {L"checkout", checkOut},
      {L"undo", [](const RestPath& path) { store().undoCheckOut(path); }},
      {L"offline", setOffline},
      {L"exempt", [](const ViewPath& path, bool exempt) { store().setExempt(path, exempt); }},
      {L"state",
       [](const ViewPath& path, const RestText& state) { store().setState(path, state); }},
      {L"card",
       [](const ViewPath& path, const std::wstring& variable, const std::wstring& configuration,
          const TypedValue& value) { store().setCardValue(path, variable, configuration, value); }},
      {L"map", [](const ViewPath& path, const std::wstring& variable, const std::wstring& block,
                  const std::wstring& tag) { store().addMapping(path, variable, {block, tag}); }},
      {L"deny",
       [](Arguments& arguments) {
         const std::wstring path = arguments.pathUntil({L"on", L"off"});
         const bool denied = arguments.atEnd() || arguments.onOff();
         arguments.end();
         store().setDenied(path, denied);
       }},
      {L"date", setDate},
      {L"fetch", [](const ViewPath& path,
                    std::optional<int> version) { store().fetch(path, version.value_or(0)); }},
      {L"show",
       [](const RestPath& path) {
         for (const std::wstring& line : store().describe(path)) report(Event::file, line);
       }},
  };
}

void setLanguage(const RestText& file) {
  if (file == L"default") {
    clientCondition().language.reset();
    return;
  }
  const std::wstring path = windowsPath(file);
  if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
    throw ScriptError(L"there is no language file " + wb::quoted(path));
  }
  clientCondition().language = path;
}

/// "after N", if it comes next: how many calls are let through first.
unsigned callsBefore(Arguments& arguments) {
  return arguments.take(L"after") ? arguments.number(0, L"no negative number of calls") : 0;
}

void fail(Arguments& arguments) {
  const std::wstring operation = arguments.word();
  if (operation == L"clear" && arguments.atEnd()) {
    clearFaults();
    return;
  }
  const std::wstring name = arguments.word();
  const auto code = resultFromName(name);
  if (!code) arguments.fail(wb::quoted(name) + L" is no result code");
  bool always = arguments.take(L"always");
  const unsigned after = callsBefore(arguments);
  always |= arguments.take(L"always");
  arguments.end();
  failOperation(operation, *code, after, always);
}

void disturb(Arguments& arguments) {
  const std::filesystem::path file = arguments.pathUntil({L"held", L"away"});
  const DiskFault what = arguments.take(L"held") ? DiskFault::held : DiskFault::away;
  if (what == DiskFault::away && !arguments.take(L"away")) arguments.fail(L"held or away?");
  if (!arguments.take(L"at")) arguments.fail(L"at which operation?");
  const std::wstring operation = arguments.word();
  const unsigned after = callsBefore(arguments);
  arguments.end();
  disturbFile(file, what, operation, after);
}

void setSetting(Arguments& arguments) {
  const std::wstring name = arguments.word();
  const std::wstring data = arguments.textUntil({L"as"});
  const std::wstring type = arguments.take(L"as") ? arguments.word() : std::wstring(L"number");
  arguments.end();
  const auto write = [&](DWORD registryType, const void* bytes, size_t size) {
    requireSuccess(writeSetting(settingName(name), registryType, bytes, static_cast<DWORD>(size)),
                   name);
  };
  if (type == L"text") return write(REG_SZ, data.c_str(), (data.size() + 1) * sizeof(wchar_t));
  wchar_t* end = nullptr;
  const unsigned long long value = std::wcstoull(data.c_str(), &end, 0);
  if (data.empty() || *end) {
    arguments.fail(wb::quoted(data) + L" is no number; a text is set `as text`");
  }
  const auto narrow = static_cast<DWORD>(value);
  if (type == L"number") return write(REG_DWORD, &narrow, sizeof(narrow));
  if (type == L"long-number") return write(REG_QWORD, &value, sizeof(value));
  if (type != L"big-endian") arguments.fail(wb::quoted(type) + L" is no type of a setting");
  const DWORD swapped = _byteswap_ulong(narrow);
  write(REG_DWORD_BIG_ENDIAN, &swapped, sizeof(swapped));
}

}  // namespace

std::vector<Directive> vaultDirectives() {
  return {
      atAnyTime(L"@vault create NAME ROOT | add PATH [from FILE] [user U] [comment T]"
                L" | newversion PATH from FILE [user U] [comment T]"
                L" | checkout PATH [user U] [computer C] [folder F] | undo PATH"
                L" | offline on|off [NAME] | exempt PATH on|off | state PATH NAME"
                L" | card PATH VAR CONFIG VALUE [type T] | map PATH VAR BLOCK TAG"
                L" | deny PATH [on|off] | date PATH YYYY-MM-DD HH:MM:SS | fetch PATH [VERSION]"
                L" | show PATH",
                oneOf(subcommands(), L" is nothing that is done to a vault")),
      atAnyTime(
          L"@client missing | present | version MAJOR MINOR | language FILE | language default",
          oneOf({{L"missing",
                  [](ScriptContext& context) { registerClient(context.options.client, false); }},
                 {L"present",
                  [](ScriptContext& context) { registerClient(context.options.client, true); }},
                 {L"version",
                  [](int major, int minor) {
                    clientCondition().major = major;
                    clientCondition().minor = minor;
                  }},
                 {L"language", setLanguage}},
                L" isn't a condition of the client")),
      atAnyTime(L"@fail OPERATION CODE [after N] [always], or @fail clear", fail),
      atAnyTime(L"@disturb FILE held | away at OPERATION [after N]", disturb),
      atAnyTime(L"@reg set NAME VALUE [as number|text|big-endian|long-number] | delete NAME | show",
                oneOf({{L"set", setSetting},
                       {L"delete",
                        [](const RestText& name) {
                          const LSTATUS status = deleteSetting(settingName(name));
                          if (status != ERROR_FILE_NOT_FOUND) requireSuccess(status, name);
                        }},
                       {L"show",
                        [] {
                          for (const std::wstring& line : addinSettings()) report(Event::reg, line);
                        }}},
                      L" is neither set, delete nor show"))};
}

}  // namespace wb
