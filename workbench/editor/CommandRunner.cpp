#include "editor/CommandRunner.h"

#include "core/Transcript.h"
#include "editor/CommandLine.h"
#include "editor/CommandStack.h"
#include "editor/DocumentManager.h"
#include "editor/Guarded.h"
#include "editor/Host.h"
#include "editor/LispFunctions.h"
#include "editor/Selection.h"

namespace wb {

void CommandRunner::runQueued() {
  const InputQueue::Number last = Host::instance().input().lastNumber();
  while (runNext(last)) {
  }
}

bool CommandRunner::hasRunnable() const {
  DocumentManager& documents = Host::instance().documents();
  InputQueue& input = Host::instance().input();
  Document* target = nullptr;
  return documents.isApplicationContext() &&
         input.next(documents.active(), input.lastNumber(), target);
}

bool CommandRunner::runNext(InputQueue::Number last) {
  DocumentManager& documents = Host::instance().documents();
  InputQueue& input = Host::instance().input();
  Document* target = nullptr;
  if (!documents.isApplicationContext() || !input.next(documents.active(), last, target)) {
    return false;
  }
  documents.activate(target);
  std::wstring token;
  if (input.readCommand(target, token) == InputQueue::Read::Token) runTyped(token, target);
  documents.runDeferred();
  return true;
}

void CommandRunner::runTyped(const std::wstring& token, Document* document) {
  Host& host = Host::instance();
  if (const Command* found = host.commands().find(token)) {
    // The command may take its own group away.
    const Command command = *found;
    run(command, document);
  } else if (!document || !host.lisp().runTyped(token, document)) {
    commandLineSays(L"Unknown command \"" + token + L"\".  Press F1 for help.");
  }
}

void CommandRunner::run(const Command& command, Document* document) {
  if (!command.runsInApplicationContext() && !document) {
    tell(Event::command, command.global + L" refused: no drawing is open");
    return;
  }
  tell(Event::command, command.global);
  const Ticket since = nextTicket();
  Selection::instance().commandBegins(command.flags);
  ++depth;
  if (command.runsInApplicationContext()) {
    const DocumentManager::ContextScope application(Host::instance().documents(), nullptr);
    runGuarded(command.global, command.work);
  } else {
    runInDocument(command, document);
  }
  --depth;
  tellLeaks(since, false);
}

void CommandRunner::runInDocument(const Command& command, Document* document) {
  DocumentManager& documents = Host::instance().documents();
  const DocumentManager::ContextScope context(documents, document);
  if (!documents.lock(document, AcAp::kWrite, command.global)) {
    tell(Event::command, command.global + L" refused: the document can't be locked");
    return;
  }
  runGuarded(command.global, command.work);
  documents.unlock(document, command.global);
}

bool CommandRunner::runInside(Document* document, const std::wstring& name,
                              const std::vector<std::wstring>& answers) {
  const Command* found = Host::instance().commands().find(name);
  if (!found) {
    commandLineSays(L"Unknown command \"" + name + L"\".  Press F1 for help.");
    return false;
  }
  if (found->runsInApplicationContext()) {
    tell(Event::command, found->global + L" refused: it doesn't run inside another command");
    return false;
  }
  const Command command = *found;
  std::wstring text;
  for (const std::wstring& answer : answers) text += answer + L"\n";
  Host::instance().input().addFirst(document, text);
  run(command, document);
  Host::instance().input().dropFirst(document);
  return true;
}

InputQueue::Read CommandRunner::ask(std::wstring& token) {
  Host& host = Host::instance();
  Document* document = host.documents().context();
  if (!document) document = host.documents().active();
  auto read = host.input().readAnswer(document, token);
  while (read == InputQueue::Read::Nothing && host.needInput && host.needInput()) {
    read = host.input().readAnswer(document, token);
  }
  if (read == InputQueue::Read::Nothing) {
    tell({Event::error, Event::noInput, {}, L"a prompt waits for input, and there is none"});
    read = InputQueue::Read::Cancel;
  }
  return read;
}

void CommandRunner::tellLeaks(Ticket since, bool keptAsWell) {
  for (const Outstanding& one : outstanding(since)) {
    if (one.kept && !keptAsWell) continue;
    if (told.insert(one.ticket).second) tell(Event::leak, one.kind + L" " + one.label);
  }
}

}  // namespace wb
