#include "scripting/Script.h"

#include <algorithm>
#include <cwctype>

#include "core/Text.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/Host.h"
#include "editor/Selection.h"
#include "scripting/Session.h"
#include "store/Store.h"
#include "watch/ImportWatch.h"

namespace wb {
namespace {

void runDirective(ScriptContext& context, const std::wstring& line, bool commandWaits);

/// A step that may not be possible just now, such as closing what isn't open.
void tryDirective(ScriptContext& context, const std::wstring& line, bool commandWaits) {
  if (line.empty() || line[0] != L'@') throw ScriptError(L"@try needs a directive");
  try {
    runDirective(context, line, commandWaits);
  } catch (const ScriptError& error) {
    tell(Event::attempt, error.why);
  } catch (const StoreError& error) {
    tell(Event::attempt, fromUtf8(error.what()));
  }
}

void runDirective(ScriptContext& context, const std::wstring& line, bool commandWaits) {
  constexpr std::wstring_view tried = L"@try ";
  if (line.rfind(tried, 0) == 0) {
    return tryDirective(context, line.substr(tried.size()), commandWaits);
  }
  const size_t nameEnd = std::min(line.find_first_of(L" \t"), line.size());
  const std::wstring name = line.substr(1, nameEnd - 1);
  for (const Directive& directive : directives()) {
    if (name != directive.name) continue;
    if (commandWaits && !directive.whileWaiting) {
      throw ScriptError(L"@" + name + L" can't come while a command waits for input");
    }
    Arguments arguments(line.substr(nameEnd), directive.usage, context.options);
    directive.run(context, arguments);
    return;
  }
  throw ScriptError(L"there is no directive @" + name);
}

}  // namespace

std::vector<ScriptLine> scriptLines(std::string_view utf8) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (utf8.substr(0, byteOrderMark.size()) == byteOrderMark) {
    utf8.remove_prefix(byteOrderMark.size());
  }
  std::vector<ScriptLine> lines;
  const std::wstring text = fromUtf8(utf8);
  unsigned number = 0;
  for (size_t begin = 0; begin < text.size();) {
    const size_t end = std::min(text.find(L'\n', begin), text.size());
    std::wstring line = text.substr(begin, end - begin);
    begin = end + 1;
    ++number;
    if (!line.empty() && line.back() == L'\r') line.pop_back();
    const size_t first = line.find_first_not_of(L" \t");
    if (first == std::wstring::npos || line[first] == L';') continue;
    lines.push_back({number, line.substr(first)});
  }
  return lines;
}

void runScriptLine(ScriptContext& context, const std::wstring& line, bool commandWaits) {
  if (line[0] == L'@') {
    runDirective(context, line, commandWaits);
  } else {
    Host::instance().type(expandFolders(line, context.options));
  }
  // A command that waits goes on by itself once it has its input.
  if (!commandWaits) Host::instance().runUntilIdle();
}

Script::Script(ScriptContext& context, std::vector<ScriptLine> lines)
    : context(context), lines(std::move(lines)) {}

const ScriptLine* Script::current() const { return running; }

bool Script::run() {
  apartments.start();
  while (next < lines.size() && step(lines[next++], false)) {
  }
  running = nullptr;
  return !failed && refuseUnusedAnswers();
}

bool Script::supplyInput() {
  while (next < lines.size() && !failed) {
    const ScriptLine& line = lines[next++];
    if (!step(line, true)) return false;
    if (line.text[0] != L'@') return true;
  }
  return false;
}

bool Script::step(const ScriptLine& line, bool commandWaits) {
  const size_t problems = Transcript::instance().problems();
  running = &line;
  try {
    runScriptLine(context, line.text, commandWaits);
    if (!commandWaits) apartments.check();
  } catch (const ImpossibleStep& error) {
    return refuse(line, error.why, Event::impossibleStep);
  } catch (const ScriptError& error) {
    return refuse(line, error.why);
  } catch (const std::exception& error) {
    return refuse(line, fromUtf8(error.what()));
  }
  // What supplyInput() ran inside this line has told of its own failure.
  if (failed) return false;
  return Transcript::instance().problems() == problems ||
         refuse(line, L"failed: " + line.text, Event::failedStep);
}

bool Script::refuse(const ScriptLine& line, const std::wstring& why, Event::Cause cause) {
  failed = true;
  tell({Event::error, cause, line.text, L"line " + std::to_wstring(line.number) + L": " + why});
  return false;
}

bool Script::refuseUnusedAnswers() {
  if (Answers::instance().answersAny()) return true;
  std::vector<std::wstring> unused = Answers::instance().unused();
  for (std::wstring& pick : Selection::instance().unused()) unused.push_back(std::move(pick));
  for (const std::wstring& answer : unused) {
    tell({Event::error, Event::unusedAnswer, {}, L"nothing asked for the answer: " + answer});
  }
  return unused.empty();
}

void ApartmentCheck::start() {
  balance = apartmentBalance();
  eventsSeen = Transcript::instance().events().size();
}

void ApartmentCheck::check() {
  const int now = apartmentBalance();
  if (now != balance) {
    const bool uncaught = Transcript::instance().anySince(
        eventsSeen, [](const Event& event) { return event.cause == Event::uncaught; });
    tell(
        uncaught && now > balance ? Event::command : Event::leak,
        L"COM initialisations less uninitialisations changed by " + std::to_wstring(now - balance));
  }
  balance = now;
  eventsSeen = Transcript::instance().events().size();
}

}  // namespace wb
