#include <acedads.h>
#include <acutmem.h>
#include <adscodes.h>

#include <cstdarg>
#include <cstring>
#include <cwchar>
#include <string>
#include <vector>

#include "core/Text.h"
#include "core/Transcript.h"
#include "database/Drawing.h"
#include "editor/Host.h"
#include "gate/HostCall.h"

using namespace wb;

namespace {

// An application may pass narrow text where wide text is expected. A wide text that begins with
// a character of ASCII, as every command does, has a zero as its second byte.
std::wstring textArgument(const void* argument) {
  const char* bytes = static_cast<const char*>(argument);
  if (!bytes || !bytes[0]) return {};
  const bool narrow = bytes[1] != 0;
  std::wstring text = narrow ? std::wstring(bytes, bytes + std::strlen(bytes))
                             : static_cast<const wchar_t*>(argument);
  recordDetail(L"argument", wb::quoted(text) + (narrow ? L" of 8 bits" : L" of 16 bits"));
  return text;
}

bool parseInteger(const std::wstring& text, int& value) {
  wchar_t* end = nullptr;
  const long parsed = std::wcstol(text.c_str(), &end, 10);
  if (text.empty() || *end || parsed < -32768 || parsed > 32767) return false;
  value = static_cast<int>(parsed);
  return true;
}

bool readArguments(int type, va_list list, std::vector<std::wstring>& words) {
  for (; type != 0 && type != RTNONE; type = va_arg(list, int)) {
    if (type == RTSTR) {
      words.push_back(textArgument(va_arg(list, const void*)));
    } else if (type == RTSHORT) {
      words.push_back(std::to_wstring(va_arg(list, int)));
    } else if (type == RTLONG) {
      words.push_back(std::to_wstring(va_arg(list, long)));
    } else {
      return false;
    }
  }
  return true;
}

int number(resbuf& result, int value) {
  result.restype = RTSHORT;
  result.resval.rint = static_cast<short>(value);
  return RTNORM;
}

int text(resbuf& result, const std::wstring& value) {
  result.restype = RTSTR;
  return acutNewString(value.c_str(), result.resval.rstring) == Acad::eOk ? RTNORM : RTERROR;
}

int readVariable(const Document& document, std::wstring_view name, resbuf& result) {
  const std::wstring title = document.title();
  const std::wstring& path = document.path();
  if (sameName(name, L"DBMOD")) return number(result, document.drawing()->dbmod());
  if (sameName(name, L"DWGNAME")) return text(result, title.substr(title.rfind(L'\\') + 1));
  if (sameName(name, L"DWGPREFIX")) return text(result, path.substr(0, path.rfind(L'\\') + 1));
  if (sameName(name, L"DWGTITLED")) return number(result, path.empty() ? 0 : 1);
  if (sameName(name, L"WRITESTAT")) return number(result, document.readOnly() ? 0 : 1);
  return RTERROR;
}

}  // namespace

extern "C" {

int acedPrompt(const ACHAR* text) {
  return HostCall(THIS_FUNCTION).run(RTERROR, [&] {
    if (!text) return RTERROR;
    CommandRunner::print(text);
    return RTNORM;
  });
}

int acedGetInt(const ACHAR* prompt, int* result) {
  return HostCall(THIS_FUNCTION, HostCall::swept).run(RTERROR, [&] {
    if (!result) return RTERROR;
    for (;;) {
      CommandRunner::print(prompt ? prompt : L"");
      const auto token = CommandRunner::requestInput();
      if (!token) return RTCAN;
      if (token->empty()) return RTNONE;
      if (parseInteger(*token, *result)) return RTNORM;
      CommandRunner::print(L"\nRequires an integer between -32768 and 32767.");
    }
  });
}

int acedCommand(int rtype, ...) {
  va_list list;
  va_start(list, rtype);
  const int result = HostCall(THIS_FUNCTION).run(RTERROR, [&] {
    std::vector<std::wstring> words;
    if (!readArguments(rtype, list, words)) return RTERROR;
    if (words.empty()) return RTNORM;
    Host& host = Host::instance();
    Document* document = host.documents().context();
    if (!document || document->gone()) {
      report(Event::command, words.front() + L" refused: acedCommand outside a document's context");
      return RTERROR;
    }
    const std::wstring name = words.front();
    words.erase(words.begin());
    return host.runner().runInside(document, name, words) ? RTNORM : RTERROR;
  });
  va_end(list);
  return result;
}

int acedGetVar(const ACHAR* name, resbuf* result) {
  return HostCall(THIS_FUNCTION).run(RTERROR, [&] {
    const auto* document = static_cast<const Document*>(Host::instance().documents().curDocument());
    return name && result && document ? readVariable(*document, name, *result) : RTERROR;
  });
}

int acedDefun(const ACHAR* name, short functionCode) {
  return HostCall(THIS_FUNCTION).run(RTERROR, [&] {
    const bool valid = name && *name;
    return valid && Host::instance().modules().define(name, functionCode) ? RTNORM : RTERROR;
  });
}

int acedRegFunc(int (*function)(void), int functionCode) {
  return HostCall(THIS_FUNCTION).run(RTERROR, [&] {
    if (!function) return RTERROR;
    return Host::instance().modules().setFunction(function, functionCode) ? RTNORM : RTERROR;
  });
}
}
