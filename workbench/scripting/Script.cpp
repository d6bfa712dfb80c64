#include "scripting/Script.h"

#include "core/Text.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/Host.h"
#include "editor/Selection.h"
#include "scripting/Directives.h"
#include "watch/ImportWatch.h"

namespace wb {
std::vector<ScriptLine> scriptLines(std::string_view utf8) {
  std::vector<ScriptLine> lines;
  unsigned number = 0;
  for (const std::string& bytes : linesOf(utf8)) {
    ++number;
    const std::wstring line = fromUtf8(bytes);
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
  // A command that waits continues by itself when it has its input.
  if (!commandWaits) Host::instance().runUntilIdle();
}

void Script::run() {
  apartments = apartmentBalance();
  eventsSeen = Transcript::instance().events().size();
  for (bool runs = true; runs && next < lines.size();) runs = step(lines[next++], false);
  running = nullptr;
  if (!failed && !Answers::instance().answersAny()) refuseUnusedAnswers();
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
    if (!commandWaits) checkApartments();
  } catch (const ImpossibleStep& error) {
    return refuse(line, fromUtf8(error.what()), Event::impossibleStep);
  } catch (const std::exception& error) {
    return refuse(line, fromUtf8(error.what()));
  }
  // A line that supplyInput() ran inside this one has reported its failure.
  if (failed) return false;
  return Transcript::instance().problems() == problems ||
         refuse(line, L"failed: " + line.text, Event::failedStep);
}

bool Script::refuse(const ScriptLine& line, const std::wstring& why, Event::Cause cause) {
  failed = true;
  report({Event::error, cause, line.text, L"line " + std::to_wstring(line.number) + L": " + why});
  return false;
}

void Script::refuseUnusedAnswers() {
  std::vector<std::wstring> unused = Answers::instance().unused();
  for (std::wstring& pick : Selection::instance().unused()) unused.push_back(std::move(pick));
  for (const std::wstring& answer : unused) {
    report({Event::error, Event::unusedAnswer, {}, L"nothing asked for the answer: " + answer});
  }
  failed = !unused.empty();
}

void Script::checkApartments() {
  const int change = apartmentBalance() - apartments;
  if (change != 0) {
    const bool uncaught = Transcript::instance().anySince(
        eventsSeen, [](const Event& event) { return event.cause == Event::uncaught; });
    report(uncaught && change > 0 ? Event::command : Event::leak,
           L"COM initialisations less uninitialisations changed by " + std::to_wstring(change));
  }
  apartments += change;
  eventsSeen = Transcript::instance().events().size();
}

}  // namespace wb
