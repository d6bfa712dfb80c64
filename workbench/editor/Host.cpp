#include "editor/Host.h"

#include <ole2.h>

#include <stdexcept>

#include "core/SessionState.h"
#include "core/Transcript.h"
#include "database/Drawing.h"
#include "editor/FileSelection.h"
#include "editor/LoadRecord.h"
#include "gate/HostError.h"

namespace wb {

// The drawings are destroyed before what the session has of them.
Host::Host() { databaseState(); }

Host& Host::instance() { return sessionPart<Host>(); }

void Host::start() {
  if (FAILED(OleInitialize(nullptr))) throw std::runtime_error("the host can't start COM");
  if (!window_.create()) {
    window_.destroy();
    OleUninitialize();
    throw std::runtime_error("the stand-in host can't start: it needs a display");
  }
  running_ = true;
  SessionState::get().mainWindow = window_.handle();
  commands_.addBuiltIn();
  for (const std::wstring& file : filesToLoadAtStart()) loadModule(file);
}

void Host::stop() {
  if (!running_) return;
  modules_.sendToAll(AcRx::kQuitMsg);
  input_.clear();
  documents_.closeAll();
  modules_.unloadAll();
  SessionState::get().mainWindow = nullptr;
  window_.destroy();
  running_ = false;
  OleUninitialize();
}

bool Host::loadModule(const std::wstring& file) {
  try {
    modules_.load(file);
    return true;
  } catch (const HostError& error) {
    report(Event::error, file + L" can't be loaded: " + error.reason);
    return false;
  }
}

bool Host::unloadModule(const std::wstring& file) {
  try {
    modules_.unload(file);
    return true;
  } catch (const HostError& error) {
    report(Event::doc, L"refused: unloading " + file + L": " + error.reason);
    return false;
  }
}

void Host::type(std::wstring_view text) {
  input_.add(documents_.active(), std::wstring(text) + L"\n", false, InputQueue::Origin::Typed);
}

void Host::pumpMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    dispatchMessage(window_.handle(), message);
  }
}

void Host::runUntilIdle() {
  do {
    pumpMessages();
    documents_.runDeferred();
    runner_.runNext(input_.lastNumber());
  } while (documents_.hasDeferred() || runner_.hasRunnable());
  window_.refresh();
  pumpMessages();
}

// Runs what the user wants, and what follows from it. False if it can't be, which is reported.
bool Host::userDoes(const std::function<void()>& work) {
  bool done = false;
  try {
    work();
    done = true;
  } catch (const HostError&) {
    // It has been reported.
  }
  runUntilIdle();
  return done;
}

bool Host::open(const std::wstring& path, bool readOnly) {
  return userDoes([&] { documents_.open(path, readOnly); });
}

bool Host::openDialog(std::optional<std::wstring> pick) {
  const size_t before = documents_.all().size();
  queuePick(std::move(pick));
  type(L"_OPEN");
  runUntilIdle();
  return documents_.all().size() > before;
}

bool Host::newDrawing() {
  return userDoes([&] { documents_.create(); });
}

bool Host::activate(const std::wstring& path) {
  Document* document = documents_.find(path);
  documents_.activate(document);
  runUntilIdle();
  return document != nullptr;
}

bool Host::close(const std::wstring& path) {
  Document* document = path.empty() ? documents_.active() : documents_.find(path);
  const bool closed = document && documents_.close(document, true);
  runUntilIdle();
  return closed;
}

bool Host::save(const std::wstring& path) {
  Document* document = path.empty() ? documents_.active() : documents_.find(path);
  if (!document) return false;
  std::wstring reason;
  bool saved = false;
  const auto work = [&] {
    try {
      documents_.save(document, {});
      saved = true;
    } catch (const HostError& error) {
      reason = error.reason;
    }
  };
  if (document == documents_.active()) {
    runner_.run({{}, L"QSAVE", {}, 0, work}, document);
  } else {
    // In the background there is no command of that drawing: an application saves it, and the one
    // on top stays current.
    work();
  }
  if (!saved) report(Event::doc, L"refused: saving " + document->title() + L": " + reason);
  runUntilIdle();
  return saved;
}

bool Host::edit() {
  Document* document = documents_.active();
  if (!document) return false;
  runner_.run({{}, L"LINE", {}, 0, [&] { document->drawing()->edit(); }}, document);
  runUntilIdle();
  return true;
}

void Host::queuePick(std::optional<std::wstring> pick) {
  FileSelection::instance().queuePick(std::move(pick));
}

bool Host::reserveCommand(const std::wstring& name) {
  return commands_.add({L"RESERVED", name, name, 0, [] {}}) == Acad::eOk;
}

}  // namespace wb
