#include "editor/Commands.h"

#include "core/Lists.h"
#include "core/Program.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "editor/FileSelection.h"
#include "editor/Host.h"
#include "editor/Selection.h"
#include "gate/HostCall.h"
#include "gate/HostError.h"

namespace wb {

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                           const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                           AcRxFunctionPtr functionAddr, AcEdUIContext*, int,
                                           HINSTANCE, AcEdCommand** cmdPtrRet) {
  if (cmdPtrRet) *cmdPtrRet = nullptr;
  return HostCall(L"AcEdCommandStack.addCommand").run(Acad::eInvalidInput, [&] {
    if (!cmdGroupName || !cmdGlobalName || !cmdLocalName || !functionAddr) {
      return Acad::eInvalidInput;
    }
    return add({cmdGroupName, cmdGlobalName, cmdLocalName, commandFlags, functionAddr,
                reinterpret_cast<const void*>(functionAddr)});
  });
}

Acad::ErrorStatus CommandStack::add(Command command) {
  if (command.group.empty() || command.global.empty() || command.local.empty()) {
    return Acad::eInvalidInput;
  }
  if (findIf(commands, [&](const Command& one) {
        return sameName(one.global, command.global) || sameName(one.local, command.local);
      })) {
    report(Event::command, command.global + L" refused: the name is in use");
    return Acad::eDuplicateKey;
  }
  if (command.address) {
    command.ticket = trackResource(L"command", command.global);
    keepBeyondCommand(command.ticket);
  }
  commands.push_back(std::move(command));
  return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeGroup(const ACHAR* groupName) {
  return HostCall(L"AcEdCommandStack.removeGroup").run(Acad::eInvalidInput, [&] {
    if (!groupName) return Acad::eInvalidInput;
    const size_t before = commands.size();
    eraseIf(commands, [&](const Command& one) {
      const bool is = sameName(one.group, groupName);
      if (is && one.ticket) releaseResource(one.ticket);
      return is;
    });
    return commands.size() < before ? Acad::eOk : Acad::eKeyNotFound;
  });
}

const Command* CommandStack::find(std::wstring_view typed) const {
  const bool global = !typed.empty() && typed.front() == L'_';
  if (global) typed.remove_prefix(1);
  return findIf(commands, [&](const Command& one) {
    return sameName(global ? one.global : one.local, typed);
  });
}

void CommandStack::forgetModule(HMODULE module) {
  eraseIf(commands, [&](const Command& one) { return isInModule(module, one.address); });
}

void CommandRunner::runQueued() {
  const InputQueue::Number last = Host::instance().input().lastNumber();
  while (runNext(last)) {
  }
}

// The document of the next piece of input that can run, not newer than `last`.
static std::optional<Document*> nextDocument(InputQueue::Number last) {
  const DocumentManager& documents = Host::instance().documents();
  if (!documents.isApplicationContext()) return std::nullopt;
  return Host::instance().input().next(documents.active(), last);
}

bool CommandRunner::hasRunnable() {
  return nextDocument(Host::instance().input().lastNumber()).has_value();
}

bool CommandRunner::runNext(InputQueue::Number last) {
  const auto target = nextDocument(last);
  if (!target) return false;
  DocumentManager& documents = Host::instance().documents();
  documents.activate(*target);
  if (const auto token = Host::instance().input().readCommand(*target)) runTyped(*token, *target);
  documents.runDeferred();
  return true;
}

void CommandRunner::runTyped(const std::wstring& token, Document* document) {
  Host& host = Host::instance();
  if (const Command* found = host.commands().find(token)) {
    // The command may take its own group away.
    run(Command(*found), document);
  } else if (!document || !host.modules().runFunction(token, document)) {
    print(L"Unknown command \"" + token + L"\".  Press F1 for help.");
  }
}

void CommandRunner::run(const Command& command, Document* document) {
  if (!command.runsInApplicationContext() && !document) {
    report(Event::command, command.global + L" refused: no drawing is open");
    return;
  }
  report(Event::command, command.global);
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
  reportLeaks(since, false);
}

void CommandRunner::runInDocument(const Command& command, Document* document) {
  DocumentManager& documents = Host::instance().documents();
  const DocumentManager::ContextScope context(documents, document);
  if (!documents.lock(document, AcAp::kWrite, command.global)) {
    report(Event::command, command.global + L" refused: the document can't be locked");
    return;
  }
  runGuarded(command.global, command.work);
  documents.unlock(document, command.global);
}

bool CommandRunner::runInside(Document* document, const std::wstring& name,
                              const std::vector<std::wstring>& answers) {
  Host& host = Host::instance();
  const Command* found = host.commands().find(name);
  if (!found) {
    print(L"Unknown command \"" + name + L"\".  Press F1 for help.");
    return false;
  }
  if (found->runsInApplicationContext()) {
    report(Event::command, found->global + L" refused: it doesn't run inside another command");
    return false;
  }
  std::wstring text;
  for (const std::wstring& answer : answers) text += answer + L"\n";
  host.input().addFirst(document, text);
  run(Command(*found), document);
  host.input().dropFirst(document);
  return true;
}

void CommandRunner::print(std::wstring_view text) {
  Host::instance().window().write(text);
  report(Event::prompt, quoted(text));
}

std::optional<std::wstring> CommandRunner::requestInput() {
  Host& host = Host::instance();
  Document* document = host.documents().context();
  if (!document) document = host.documents().active();
  while (!host.input().hasAnswer(document)) {
    if (host.needInput && host.needInput()) continue;
    report({Event::error, Event::noInput, {}, L"a prompt waits for input, and there is none"});
    return std::nullopt;
  }
  return host.input().readAnswer(document);
}

void CommandRunner::reportLeaks(Ticket since, bool keptAsWell) {
  for (const Outstanding& one : outstanding(since)) {
    if (one.kept && !keptAsWell) continue;
    if (reported.insert(one.ticket).second) report(Event::leak, one.kind + L" " + one.label);
  }
}

// --- the editor's own commands ------------------------------------------------------------------

namespace {

DocumentManager& documents() { return Host::instance().documents(); }

void close() {
  if (Document* document = documents().active()) documents().close(document, true);
}

void open() {
  bool readOnly = false;
  const auto path = FileSelection::instance().chooseToOpen(readOnly);
  if (!path) return;
  const auto reason = whyFailed([&] { documents().open(*path, readOnly); });
  if (reason) CommandRunner::print(*path + L" can't be opened: " + *reason + L".");
}

void newDrawing() {
  const auto reason = whyFailed([] { documents().create(); });
  if (reason) CommandRunner::print(L"No new drawing: " + *reason + L".");
}

void saveAs() {
  Document* document = documents().context();
  if (const auto path = FileSelection::instance().chooseToSave()) {
    documents().saveForUserAs(document, *path);
  }
}

void quickSave() { documents().saveForUser(documents().context()); }

void quit() {
  for (Document* document : documents().all()) {
    if (documents().isOpen(document) && !documents().close(document, true)) return;
  }
  Host::instance().requestQuit();
}

}  // namespace

void CommandStack::addBuiltIn() {
  const struct {
    const wchar_t* name;
    int flags;
    void (*work)();
  } builtIn[] = {{L"CLOSE", ACRX_CMD_SESSION, close}, {L"NEW", ACRX_CMD_SESSION, newDrawing},
                 {L"OPEN", ACRX_CMD_SESSION, open},   {L"QSAVE", ACRX_CMD_MODAL, quickSave},
                 {L"QUIT", ACRX_CMD_SESSION, quit},   {L"SAVEAS", ACRX_CMD_MODAL, saveAs}};
  for (const auto& [name, flags, work] : builtIn) add({L"ACAD", name, name, flags, work});
}

}  // namespace wb
