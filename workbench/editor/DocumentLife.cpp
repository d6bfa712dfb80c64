#include <dbapserv.h>

#include <algorithm>

#include "core/Transcript.h"
#include "database/Drawing.h"
#include "dialogs/Answers.h"
#include "editor/CommandLine.h"
#include "editor/DocumentManager.h"
#include "editor/Editor.h"
#include "editor/FileSelection.h"
#include "editor/Host.h"
#include "editor/InputQueue.h"
#include "editor/LispFunctions.h"
#include "editor/MainWindow.h"
#include "editor/ModuleLoader.h"
#include "gate/HostError.h"

namespace wb {

namespace {

bool isWriteProtected(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool isCompletePath(const std::filesystem::path& path) {
  return path.has_root_name() && path.has_root_directory();
}

}  // namespace

void DocumentManager::requireRoomForAnother() const {
  if (open_.empty() || Host::instance().modules().allAwareOfDocuments()) return;
  throw HostError(L"an application that isn't registered for several documents is loaded");
}

// The events of an opening; `fill` gets the drawing in between.
void DocumentManager::adopt(std::unique_ptr<Document> document, const std::function<void()>& fill) {
  Document* fresh = document.get();
  fire(L"documentCreateStarted", [&](auto& reactor) { reactor.documentCreateStarted(fresh); });
  try {
    fill();
  } catch (const HostError&) {
    fire(L"documentCreateCanceled", [&](auto& reactor) { reactor.documentCreateCanceled(fresh); });
    fresh->gone_ = true;
    fresh->hold_.release();
    tombstones_.push_back(std::move(document));
    throw;
  }
  open_.push_back(std::move(document));
  fresh->drawing_->setWriteCheck(
      [this, fresh] { return !isOpen(fresh) || fresh->isWriteLocked(); });
  tell(Event::doc, (fresh->path_.empty() ? L"created " : L"opened ") + fresh->title() +
                       (fresh->readOnly_ ? L" read-only" : L""));
  fire(L"documentCreated", [&](auto& reactor) { reactor.documentCreated(fresh); });
  bringToTop(fresh, true);
}

std::unique_ptr<Document> DocumentManager::make(const std::wstring& path, bool readOnly) {
  if (!reusesAddresses_ || tombstones_.empty()) return std::make_unique<Document>(path, readOnly);
  Document* const place = tombstones_.back().release();
  tombstones_.pop_back();
  place->~Document();
  return std::unique_ptr<Document>(new (place) Document(path, readOnly));
}

void DocumentManager::open(const std::wstring& path, bool readOnly) {
  auto document = make(path, readOnly || isWriteProtected(path));
  Document& fresh = *document;
  const auto fill = [&] {
    if (!isCompletePath(path)) throw HostError(L"the path isn't complete");
    requireRoomForAnother();
    // Held before it is read, so that nobody can write it in between.
    if (!fresh.readOnly_ && !fresh.hold_.take(path)) {
      const DWORD error = GetLastError();
      if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) {
        throw HostError(L"the file doesn't exist");
      }
      fresh.readOnly_ = true;
    }
    fresh.drawing_ = Drawing::load(path);
  };
  try {
    adopt(std::move(document), fill);
  } catch (const HostError& error) {
    tell(Event::doc, L"refused: opening " + path + L": " + error.reason);
    throw;
  }
}

void DocumentManager::create() {
  auto document = make(L"", false);
  Document& fresh = *document;
  fresh.caption_ = L"Drawing" + std::to_wstring(++unnamed_);
  try {
    adopt(std::move(document), [&] {
      requireRoomForAnother();
      fresh.drawing_ = Drawing::blank();
    });
  } catch (const HostError& error) {
    tell(Event::doc, L"refused: a new drawing: " + error.reason);
    throw;
  }
}

void DocumentManager::activate(Document* document) {
  if (document && document != active_ && isOpen(document)) bringToTop(document, false);
}

void DocumentManager::bringToTop(Document* document, bool fresh) {
  if (Document* old = active_) {
    fire(L"documentToBeDeactivated", [&](auto& reactor) { reactor.documentToBeDeactivated(old); });
  }
  fire(L"documentToBeActivated", [&](auto& reactor) { reactor.documentToBeActivated(document); });
  active_ = document;
  order_.erase(std::remove(order_.begin(), order_.end(), document), order_.end());
  order_.push_back(document);
  acdbHostApplicationServices()->setWorkingDatabase(document->databaseOf());
  Host::instance().window().show(document->title(), document->drawing());
  tell(Event::doc, L"activated " + document->title());
  fire(L"documentBecameCurrent", [&](auto& reactor) { reactor.documentBecameCurrent(document); });
  if (fresh) Host::instance().modules().documentLoaded(document);
  if (!isOpen(document) || active_ != document) return;
  fire(L"documentActivated", [&](auto& reactor) { reactor.documentActivated(document); });
}

void DocumentManager::save(Document* document, const std::wstring& path) {
  const std::wstring target = path.empty() ? document->path_ : path;
  if (target.empty()) throw HostError(L"the drawing has no name");
  if (!isCompletePath(target)) throw HostError(L"the path isn't complete");
  if (path.empty() && document->readOnly_) throw HostError(L"the drawing is read-only");
  if (isWriteProtected(target)) throw HostError(L"the file is write-protected");
  Host::instance().modules().sendToAll(AcRx::kSaveMsg);
  Host::instance().editor().beginSave(document->databaseOf(), target);
  document->hold_.release();
  try {
    document->drawing_->save(target);
  } catch (const HostError&) {
    holdAgain(document);
    throw;
  }
  document->path_ = target;
  document->readOnly_ = false;
  document->drawing_->setDbmod(0);
  holdAgain(document);
  tell({Event::doc, Event::documentSaved, target, L"saved " + target});
  Host::instance().editor().saveComplete(document->databaseOf(), target.c_str());
}

void DocumentManager::holdAgain(Document* document) {
  if (document->readOnly_ || document->path_.empty() || document->hold_.take(document->path_)) {
    return;
  }
  document->readOnly_ = true;
  tell(Event::doc, L"held by somebody else after the saving, now read-only: " + document->path_);
}

bool DocumentManager::saveForUser(Document* document) {
  std::wstring path;
  if (document->path_.empty()) {
    bool readOnly = false;
    auto& selection = FileSelection::instance();
    path = selection.choose(FileSelection::saveFlags, L"Save Drawing As", readOnly).value_or(L"");
    if (path.empty()) return false;
  }
  return saveForUserAs(document, path);
}

bool DocumentManager::saveForUserAs(Document* document, const std::wstring& path) {
  try {
    save(document, path);
    return true;
  } catch (const HostError& error) {
    commandLineSays(document->title() + L" was not saved: " + error.reason + L".");
    return false;
  }
}

// Asks what to do with unsaved changes. `refused` if the drawing has to stay open.
bool DocumentManager::keepChanges(Document* document, bool& refused) {
  const std::wstring question = L"Save changes to " + document->title() + L"?";
  const int answer = watchedMessageBox(Host::instance().mainWindow(), question.c_str(), L"AutoCAD",
                                       MB_YESNOCANCEL | MB_ICONEXCLAMATION);
  refused = answer != IDYES && answer != IDNO;
  return answer == IDYES;
}

bool DocumentManager::close(Document* document, bool ask) {
  if (!isOpen(document) || document->closing_) return false;
  document->closing_ = true;
  bool refused = false;
  if (ask && document->drawing_->dbmod() != 0 && keepChanges(document, refused)) {
    refused = !saveForUser(document);
  }
  if (refused) {
    document->closing_ = false;
    tell(Event::doc, L"refused: closing " + document->title());
    return false;
  }
  destroy(document);
  return true;
}

void DocumentManager::destroy(Document* document) {
  // A closing from the document's own command leaves that command's frame alone.
  const ContextScope application(*this, nullptr);
  tell(Event::doc, L"to be destroyed " + document->title());
  fire(L"documentToBeDestroyed", [&](auto& reactor) { reactor.documentToBeDestroyed(document); });
  Host::instance().modules().documentUnloading(document);
  Host::instance().input().dropAll(document);
  Host::instance().lisp().drop(document);
  document->hold_.release();
  document->drawing_->close();
  const auto at = std::find_if(open_.begin(), open_.end(),
                               [&](const auto& one) { return one.get() == document; });
  tombstones_.push_back(std::move(*at));
  open_.erase(at);
  order_.erase(std::remove(order_.begin(), order_.end(), document), order_.end());
  document->gone_ = true;
  document->locks_.clear();
  if (acdbHostApplicationServices()->workingDatabase() == document->databaseOf()) {
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  }
  if (active_ == document) active_ = nullptr;
  tell(
      {Event::doc, Event::documentDestroyed, document->title(), L"destroyed " + document->title()});
  const std::wstring name = document->path_;
  fire(L"documentDestroyed", [&](auto& reactor) { reactor.documentDestroyed(name.c_str()); });
  if (active_) return;
  if (order_.empty()) {
    Host::instance().window().show({}, nullptr);
  } else {
    bringToTop(order_.back(), false);
  }
}

void DocumentManager::closeAll() {
  while (!open_.empty()) destroy(open_.back().get());
}

// The events of a lock come in the context of the command that locks.
void DocumentManager::fireLock(bool before, Document* document, AcAp::DocLockMode mine,
                               AcAp::DocLockMode next, const std::wstring& name) {
  if (before) {
    reactors_.each(L"documentLockModeWillChange", [&](auto& reactor) {
      reactor.documentLockModeWillChange(document, mine, next, mine, name.c_str());
    });
  } else {
    reactors_.each(L"documentLockModeChanged", [&](auto& reactor) {
      reactor.documentLockModeChanged(document, mine, next, next, name.c_str());
    });
  }
}

bool DocumentManager::lock(Document* document, AcAp::DocLockMode mode, const std::wstring& name) {
  if (!isOpen(document)) return false;
  if (refusals_ > 0) {
    --refusals_;
    tell(Event::doc, L"refused: a lock of " + document->title());
    fire(L"documentLockModeChangeVetoed",
         [&](auto& reactor) { reactor.documentLockModeChangeVetoed(document, name.c_str()); });
    return false;
  }
  const auto mine = document->locks_.empty() ? AcAp::kNotLocked : document->locks_.back();
  fireLock(true, document, mine, mode, name);
  if (document->gone_) return false;
  document->locks_.push_back(mode);
  fireLock(false, document, mine, mode, name);
  return true;
}

void DocumentManager::unlock(Document* document, const std::wstring& name) {
  if (document->gone_ || document->locks_.empty()) return;
  const auto mine = document->locks_.back();
  const auto count = document->locks_.size();
  const auto next = count > 1 ? document->locks_[count - 2] : AcAp::kNotLocked;
  fireLock(true, document, mine, next, L"#" + name);
  if (document->gone_) return;
  document->locks_.pop_back();
  fireLock(false, document, mine, next, L"#" + name);
}

}  // namespace wb
