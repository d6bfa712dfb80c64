#include "editor/Host.h"

#include <ole2.h>

#include <adscodes.h>

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
  const auto reason = whyFailed([&] { modules_.load(file); });
  if (reason) report(Event::error, file + L" can't be loaded: " + *reason);
  return !reason;
}

bool Host::unloadModule(const std::wstring& file) {
  const auto reason = whyFailed([&] { modules_.unload(file); });
  if (reason) report(Event::doc, L"refused: unloading " + file + L": " + *reason);
  return !reason;
}

void Host::type(std::wstring_view text) {
  input_.add(documents_.active(), std::wstring(text) + L"\n", false, InputQueue::Origin::Typed);
}

/// Dispatches a message as the editor's own loop does: before a key goes to a modeless window that
/// belongs to the editor, that window is asked whether it keeps the focus.
static void dispatchMessage(HWND mainWindow, MSG& message) {
  const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
  const HWND top = message.hwnd ? GetAncestor(message.hwnd, GA_ROOT) : nullptr;
  if (isKey && top && top != mainWindow && GetWindow(top, GW_OWNER) == mainWindow) {
    if (!SendMessageW(top, WM_ACAD_KEEPFOCUS, 0, 0)) SetFocus(mainWindow);
    if (IsDialogMessageW(top, &message)) return;
  }
  TranslateMessage(&message);
  DispatchMessageW(&message);
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
  } while (documents_.hasDeferred() || CommandRunner::hasRunnable());
  window_.refresh();
  pumpMessages();
}

// Runs what the user wants, and what follows from it. False if it can't be; that was reported.
bool Host::userDoes(const std::function<void()>& work) {
  const bool done = !whyFailed(work);
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
  // What stays if the command can't run.
  std::optional<std::wstring> reason = L"";
  const auto work = [&] { reason = whyFailed([&] { documents_.save(document, {}); }); };
  if (document == documents_.active()) {
    runner_.run({{}, L"QSAVE", {}, 0, work}, document);
  } else {
    // In the background there is no command of that drawing: an application saves it, and the one
    // on top stays current.
    work();
  }
  if (reason) report(Event::doc, L"refused: saving " + document->title() + L": " + *reason);
  runUntilIdle();
  return !reason;
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
