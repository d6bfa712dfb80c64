#include "editor/Host.h"

#include <ole2.h>

#include <stdexcept>

#include "core/SessionState.h"
#include "core/Transcript.h"
#include "database/Drawing.h"
#include "editor/BuiltInCommands.h"
#include "editor/CommandRunner.h"
#include "editor/CommandStack.h"
#include "editor/ContextMenus.h"
#include "editor/DocumentManager.h"
#include "editor/Editor.h"
#include "editor/FileSelection.h"
#include "editor/InputQueue.h"
#include "editor/LispFunctions.h"
#include "editor/LoadRecord.h"
#include "editor/MainWindow.h"
#include "editor/ModuleLoader.h"
#include "gate/HostError.h"

namespace wb {

struct Host::Parts {
  bool running = false;
  bool quitRequested = false;
  MainWindow window;
  DocumentManager documents;
  CommandStack commands;
  CommandRunner runner;
  InputQueue input;
  LispFunctions lisp;
  ModuleLoader modules;
  ContextMenus menus;
  Editor editor;
};

// The drawings go before what the session has of them.
Host::Host() : parts((databaseState(), std::make_unique<Parts>())) {}
Host::~Host() = default;

Host& Host::instance() { return sessionPart<Host>(); }

bool Host::running() const { return parts->running; }
bool Host::quitRequested() const { return parts->quitRequested; }
void Host::requestQuit() { parts->quitRequested = true; }
HWND Host::mainWindow() const { return parts->window.handle(); }
MainWindow& Host::window() { return parts->window; }
DocumentManager& Host::documents() { return parts->documents; }
CommandStack& Host::commands() { return parts->commands; }
CommandRunner& Host::runner() { return parts->runner; }
InputQueue& Host::input() { return parts->input; }
LispFunctions& Host::lisp() { return parts->lisp; }
ModuleLoader& Host::modules() { return parts->modules; }
ContextMenus& Host::menus() { return parts->menus; }
Editor& Host::editor() { return parts->editor; }

void Host::start() {
  if (FAILED(OleInitialize(nullptr))) throw std::runtime_error("the host can't start COM");
  if (!parts->window.create()) {
    parts->window.destroy();
    OleUninitialize();
    throw std::runtime_error("the stand-in host can't start: it needs a display");
  }
  parts->running = true;
  SessionState::get().mainWindow = parts->window.handle();
  addBuiltInCommands(parts->commands);
  for (const std::wstring& file : filesToLoadAtStart()) loadModule(file);
}

void Host::stop() {
  if (!parts->running) return;
  parts->modules.sendToAll(AcRx::kQuitMsg);
  parts->input.clear();
  parts->documents.closeAll();
  parts->modules.unloadAll();
  SessionState::get().mainWindow = nullptr;
  parts->window.destroy();
  parts->running = false;
  OleUninitialize();
}

bool Host::loadModule(const std::wstring& file) {
  try {
    parts->modules.load(file);
    return true;
  } catch (const HostError& error) {
    tell(Event::error, file + L" can't be loaded: " + error.reason);
    return false;
  }
}

bool Host::unloadModule(const std::wstring& file) {
  try {
    parts->modules.unload(file);
    return true;
  } catch (const HostError& error) {
    tell(Event::doc, L"refused: unloading " + file + L": " + error.reason);
    return false;
  }
}

void Host::type(std::wstring_view text) {
  parts->input.add(parts->documents.active(), std::wstring(text) + L"\n", false,
                   InputQueue::Origin::Typed);
}

bool Host::hasWork() const { return parts->documents.hasDeferred() || parts->runner.hasRunnable(); }

void Host::pumpMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    dispatchMessage(parts->window.handle(), message);
  }
}

void Host::runUntilIdle() {
  do {
    pumpMessages();
    parts->documents.runDeferred();
    parts->runner.runNext(parts->input.lastNumber());
  } while (hasWork());
  parts->window.refresh();
  pumpMessages();
}

// Runs what the user wants, and what follows from it. False if it can't be, which is reported.
bool Host::userDoes(const std::function<void()>& work) {
  bool done = false;
  try {
    work();
    done = true;
  } catch (const HostError&) {
    // Whoever raised it has told why.
  }
  runUntilIdle();
  return done;
}

bool Host::open(const std::wstring& path, bool readOnly) {
  return userDoes([&] { parts->documents.open(path, readOnly); });
}

bool Host::openDialog(std::optional<std::wstring> pick) {
  const size_t before = parts->documents.all().size();
  queuePick(std::move(pick));
  type(L"_OPEN");
  runUntilIdle();
  return parts->documents.all().size() > before;
}

bool Host::newDrawing() {
  return userDoes([&] { parts->documents.create(); });
}

bool Host::activate(const std::wstring& path) {
  Document* document = parts->documents.find(path);
  parts->documents.activate(document);
  runUntilIdle();
  return document != nullptr;
}

bool Host::close(const std::wstring& path) {
  Document* document = path.empty() ? parts->documents.active() : parts->documents.find(path);
  const bool closed = document && parts->documents.close(document, true);
  runUntilIdle();
  return closed;
}

bool Host::save(const std::wstring& path) {
  Document* document = path.empty() ? parts->documents.active() : parts->documents.find(path);
  if (!document) return false;
  std::wstring reason;
  bool saved = false;
  Command command;
  command.global = L"QSAVE";
  command.work = [&] {
    try {
      parts->documents.save(document, {});
      saved = true;
    } catch (const HostError& error) {
      reason = error.reason;
    }
  };
  if (document == parts->documents.active()) {
    parts->runner.run(command, document);
  } else {
    // In the background there is no command of that drawing: an application saves it, and the one
    // on top stays current.
    command.work();
  }
  if (!saved) tell(Event::doc, L"refused: saving " + document->title() + L": " + reason);
  runUntilIdle();
  return saved;
}

bool Host::edit() {
  Document* document = parts->documents.active();
  if (!document) return false;
  Command command;
  command.global = L"LINE";
  command.work = [&] { document->drawing()->edit(); };
  parts->runner.run(command, document);
  runUntilIdle();
  return true;
}

void Host::queuePick(std::optional<std::wstring> pick) {
  FileSelection::instance().queuePick(std::move(pick));
}

bool Host::reserveCommand(const std::wstring& name) {
  Command command;
  command.group = L"RESERVED";
  command.global = command.local = name;
  command.work = [] {};
  return parts->commands.add(std::move(command)) == Acad::eOk;
}

void Host::refuseLocks(unsigned count) { parts->documents.refuseLocks(count); }

}  // namespace wb
