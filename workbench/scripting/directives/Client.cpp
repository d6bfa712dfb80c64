#include <windows.h>

#include <cwchar>

#include "core/RegistrySettings.h"
#include "core/ResultCodes.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "faults/Faults.h"
#include "scripting/ClientLibrary.h"
#include "scripting/Directives.h"

namespace wb {
namespace {

void client(ScriptContext& context, Arguments& arguments) {
  const std::wstring what = arguments.word();
  if (what == L"missing") {
    arguments.end();
    context.client.remove();
  } else if (what == L"present") {
    arguments.end();
    context.client.enter();
  } else if (what == L"version") {
    clientCondition().major = arguments.number();
    clientCondition().minor = arguments.number();
    arguments.end();
  } else if (what == L"language") {
    const std::wstring file = arguments.textUntil();
    if (file == L"default") {
      clientCondition().language.reset();
    } else {
      const std::wstring path = windowsPath(file);
      if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
        throw ScriptError(L"there is no language file " + wb::quoted(path));
      }
      clientCondition().language = path;
    }
  } else {
    arguments.fail(wb::quoted(what) + L" isn't a condition of the client");
  }
}

unsigned numberOfCalls(Arguments& arguments) {
  const int calls = arguments.number();
  if (calls < 0) arguments.fail(L"no negative number of calls");
  return static_cast<unsigned>(calls);
}

void fail(ScriptContext&, Arguments& arguments) {
  const std::wstring operation = arguments.word();
  if (operation == L"clear" && arguments.atEnd()) {
    clearFaults();
    return;
  }
  const std::wstring name = arguments.word();
  const auto code = resultFromName(name);
  if (!code) arguments.fail(wb::quoted(name) + L" is no result code");
  unsigned after = 0;
  bool always = false;
  while (!arguments.atEnd()) {
    if (arguments.take(L"always")) {
      always = true;
    } else if (arguments.take(L"after")) {
      after = numberOfCalls(arguments);
    } else {
      arguments.end();
    }
  }
  failOperation(operation, *code, after, always);
}

void disturb(ScriptContext&, Arguments& arguments) {
  const std::filesystem::path file = windowsPath(arguments.textUntil({L"held", L"away"}));
  const DiskFault what = arguments.take(L"held") ? DiskFault::held : DiskFault::away;
  if (what == DiskFault::away && !arguments.take(L"away")) arguments.fail(L"held or away?");
  if (!arguments.take(L"at")) arguments.fail(L"at which operation?");
  const std::wstring operation = arguments.word();
  unsigned after = 0;
  if (arguments.take(L"after")) after = numberOfCalls(arguments);
  arguments.end();
  disturbFile(file, what, operation, after);
}

void checkStatus(LSTATUS status, const std::wstring& name) {
  if (status == ERROR_SUCCESS) return;
  throw ScriptError(L"the setting " + wb::quoted(name) + L" can't be changed, Windows error " +
                    std::to_wstring(status));
}

void setSetting(Arguments& arguments) {
  const std::wstring name = arguments.word();
  const std::wstring data = arguments.textUntil({L"as"});
  const std::wstring type = arguments.take(L"as") ? arguments.word() : std::wstring(L"number");
  arguments.end();
  const SettingName setting = settingName(name);
  if (type == L"text") {
    const auto size = static_cast<DWORD>((data.size() + 1) * sizeof(wchar_t));
    return checkStatus(writeSetting(setting, REG_SZ, data.c_str(), size), name);
  }
  wchar_t* end = nullptr;
  const unsigned long long value = std::wcstoull(data.c_str(), &end, 0);
  if (data.empty() || *end) {
    arguments.fail(wb::quoted(data) + L" is no number; a text is set `as text`");
  }
  const auto narrow = static_cast<DWORD>(value);
  if (type == L"number") {
    checkStatus(writeSetting(setting, REG_DWORD, &narrow, sizeof(narrow)), name);
  } else if (type == L"big-endian") {
    const DWORD swapped = _byteswap_ulong(narrow);
    checkStatus(writeSetting(setting, REG_DWORD_BIG_ENDIAN, &swapped, sizeof(swapped)), name);
  } else if (type == L"long-number") {
    checkStatus(writeSetting(setting, REG_QWORD, &value, sizeof(value)), name);
  } else {
    arguments.fail(wb::quoted(type) + L" is no type of a setting");
  }
}

void reg(ScriptContext&, Arguments& arguments) {
  const std::wstring what = arguments.word();
  if (what == L"set") {
    setSetting(arguments);
  } else if (what == L"delete") {
    const std::wstring name = arguments.textUntil();
    const LSTATUS status = deleteSetting(settingName(name));
    if (status != ERROR_FILE_NOT_FOUND) checkStatus(status, name);
  } else if (what == L"show") {
    arguments.end();
    for (const std::wstring& line : addinSettings()) tell(Event::reg, line);
  } else {
    arguments.fail(wb::quoted(what) + L" is neither set, delete nor show");
  }
}

}  // namespace

std::vector<Directive> clientDirectives() {
  return {
      {L"client",
       L"@client missing | present | version MAJOR MINOR | language FILE | language default",
       client, true},
      {L"fail", L"@fail OPERATION CODE [after N] [always], or @fail clear", fail, true},
      {L"disturb", L"@disturb FILE held | away at OPERATION [after N]", disturb, true},
      {L"reg", L"@reg set NAME VALUE [as number|text|big-endian|long-number] | delete NAME | show",
       reg, true},
  };
}

}  // namespace wb
