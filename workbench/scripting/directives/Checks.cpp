#include <cstdio>
#include <cwchar>
#include <utility>

#include "core/Text.h"
#include "core/Transcript.h"
#include "dialogs/Reader.h"
#include "dialogs/Screenshot.h"
#include "editor/Host.h"
#include "scripting/Directives.h"
#include "scripting/Session.h"

namespace wb {
namespace {

void mark(ScriptContext&, Arguments& arguments) {
  arguments.end();
  Transcript::instance().mark();
}

/// The text to look for; the transcript writes the session's folders in its own way.
std::wstring expectedText(Arguments& arguments) {
  std::wstring text = arguments.restOfLine();
  for (const auto& [name, told] :
       {std::pair(L"%WORK%", L"<work>"), std::pair(L"%DRAWINGS%", L"<drawings>")}) {
    for (size_t at = text.find(name); at != std::wstring::npos; at = text.find(name)) {
      text.replace(at, std::wcslen(name), told);
    }
  }
  return text;
}

void expect(ScriptContext&, Arguments& arguments) {
  const std::wstring text = expectedText(arguments);
  if (!Transcript::instance().holdsSinceMark(text)) {
    throw ScriptError(L"expected since the mark: " + text);
  }
}

void expectNo(ScriptContext&, Arguments& arguments) {
  const std::wstring text = expectedText(arguments);
  if (Transcript::instance().holdsSinceMark(text)) {
    throw ScriptError(L"not expected since the mark: " + text);
  }
}

void shot(ScriptContext&, Arguments& arguments) {
  // What waits to be drawn or raised is drawn first.
  Host::instance().pumpMessages();
  try {
    savePicture(windowsPath(arguments.textUntil()));
  } catch (const DialogError& error) {
    throw ScriptError(error.reason);
  }
}

/// For a person who reads along; it isn't an event, so the transcript doesn't keep it.
void say(ScriptContext& context, Arguments& arguments) {
  const std::wstring text = arguments.restOfLine();
  if (!context.options.echo) return;
  std::printf("\n== %s\n", toUtf8(text).c_str());
  std::fflush(stdout);
}

}  // namespace

std::vector<Directive> checkDirectives() {
  return {
      {L"mark", L"@mark", mark, true},
      {L"expect", L"@expect TEXT", expect, true},
      {L"expect-no", L"@expect-no TEXT", expectNo, true},
      {L"shot", L"@shot FILE", shot, true},
      {L"say", L"@say TEXT", say, true},
  };
}

}  // namespace wb
