#include <dbapserv.h>

#include <algorithm>

#include "core/Transcript.h"
#include "database/Drawing.h"
#include "dialogs/Answers.h"
#include "editor/FileSelection.h"
#include "editor/Host.h"
#include "gate/HostError.h"
#include "store/Files.h"

namespace wb {
namespace {

bool isCompletePath(const std::filesystem::path& path) {
  return path.has_root_name() && path.has_root_directory();
}

/// Null, with the Windows error in GetLastError(), if the file is write-protected or somebody else
/// holds it.
FileHold holdFile(const std::wstring& path) {
  HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  return FileHold(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

using Reactor = AcApDocManagerReactor;

}  // namespace

void DocumentManager::requireRoomForAnother() const {
  if (open_.empty() || Host::instance().modules().allAwareOfDocuments()) return;
  throw HostError(L"an application that isn't registered for several documents is loaded");
}

// The events of an opening, which is called `what`; `fill` loads the drawing in between.
void DocumentManager::adopt(std::unique_ptr<Document> document, const std::wstring& what,
                            const std::function<void()>& fill) {
  Document* fresh = document.get();
  fire(L"documentCreateStarted", &Reactor::documentCreateStarted, fresh);
  try {
    fill();
  } catch (const HostError& error) {
    fire(L"documentCreateCanceled", &Reactor::documentCreateCanceled, fresh);
    fresh->gone_ = true;
    fresh->hold_.reset();
    tombstones_.push_back(std::move(document));
    report(Event::doc, L"refused: " + what + L": " + error.reason);
    throw;
  }
  open_.push_back(std::move(document));
  fresh->drawing_->mayBeWritten = [this, fresh] {
    return !isOpen(fresh) || fresh->isWriteLocked();
  };
  report(Event::doc, (fresh->path_.empty() ? L"created " : L"opened ") + fresh->title() +
                         (fresh->readOnly_ ? L" read-only" : L""));
  fire(L"documentCreated", &Reactor::documentCreated, fresh);
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
  auto document = make(path, readOnly || isReadOnly(path));
  Document& fresh = *document;
  adopt(std::move(document), L"opening " + path, [&] {
    if (!isCompletePath(path)) throw HostError(L"the path isn't complete");
    requireRoomForAnother();
    // Held before it is read, so that nobody can write it in between.
    if (!fresh.readOnly_) fresh.hold_ = holdFile(path);
    if (!fresh.readOnly_ && !fresh.hold_) {
      const DWORD error = GetLastError();
      if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) {
        throw HostError(L"the file doesn't exist");
      }
      fresh.readOnly_ = true;
    }
    fresh.drawing_ = Drawing::load(path);
  });
}

void DocumentManager::create() {
  auto document = make(L"", false);
  Document& fresh = *document;
  fresh.caption_ = L"Drawing" + std::to_wstring(++unnamed_);
  adopt(std::move(document), L"a new drawing", [&] {
    requireRoomForAnother();
    fresh.drawing_ = Drawing::blank();
  });
}

void DocumentManager::activate(Document* document) {
  if (document && document != active_ && isOpen(document)) bringToTop(document, false);
}

void DocumentManager::bringToTop(Document* document, bool fresh) {
  if (Document* old = active_) {
    fire(L"documentToBeDeactivated", &Reactor::documentToBeDeactivated, old);
  }
  fire(L"documentToBeActivated", &Reactor::documentToBeActivated, document);
  active_ = document;
  eraseIf(order_, [&](const Document* one) { return one == document; });
  order_.push_back(document);
  acdbHostApplicationServices()->setWorkingDatabase(document->databaseOf());
  Host::instance().window().show(document->title(), document->drawing());
  report(Event::doc, L"activated " + document->title());
  fire(L"documentBecameCurrent", &Reactor::documentBecameCurrent, document);
  if (fresh) Host::instance().modules().sendToAll(AcRx::kLoadDwgMsg, document);
  if (!isOpen(document) || active_ != document) return;
  fire(L"documentActivated", &Reactor::documentActivated, document);
}

void DocumentManager::save(Document* document, const std::wstring& path) {
  const std::wstring target = path.empty() ? document->path_ : path;
  if (target.empty()) throw HostError(L"the drawing has no name");
  if (!isCompletePath(target)) throw HostError(L"the path isn't complete");
  if (path.empty() && document->readOnly_) throw HostError(L"the drawing is read-only");
  if (isReadOnly(target)) throw HostError(L"the file is write-protected");
  Host::instance().modules().sendToAll(AcRx::kSaveMsg);
  Host::instance().editor().beginSave(document->databaseOf(), target.c_str());
  document->hold_.reset();
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
  report({Event::doc, Event::documentSaved, target, L"saved " + target});
  Host::instance().editor().saveComplete(document->databaseOf(), target.c_str());
}

void DocumentManager::holdAgain(Document* document) {
  if (document->readOnly_ || document->path_.empty()) return;
  document->hold_ = holdFile(document->path_);
  if (document->hold_) return;
  document->readOnly_ = true;
  report(Event::doc, L"held by somebody else after the saving, now read-only: " + document->path_);
}

bool DocumentManager::saveForUser(Document* document) {
  if (!document->path_.empty()) return saveForUserAs(document, {});
  const auto path = FileSelection::instance().chooseToSave();
  return path && !path->empty() && saveForUserAs(document, *path);
}

bool DocumentManager::saveForUserAs(Document* document, const std::wstring& path) {
  const auto reason = whyFailed([&] { save(document, path); });
  if (reason) CommandRunner::print(document->title() + L" was not saved: " + *reason + L".");
  return !reason;
}

// Asks what to do with unsaved changes. False if the drawing has to stay open.
bool DocumentManager::disposeOfChanges(Document* document) {
  const std::wstring question = L"Save changes to " + document->title() + L"?";
  const int answer = watchedMessageBox(Host::instance().mainWindow(), question.c_str(), L"AutoCAD",
                                       MB_YESNOCANCEL | MB_ICONEXCLAMATION);
  return answer == IDYES ? saveForUser(document) : answer == IDNO;
}

bool DocumentManager::close(Document* document, bool ask) {
  if (!isOpen(document) || document->closing_) return false;
  document->closing_ = true;
  if (ask && document->drawing_->dbmod() != 0 && !disposeOfChanges(document)) {
    document->closing_ = false;
    report(Event::doc, L"refused: closing " + document->title());
    return false;
  }
  destroy(document);
  return true;
}

void DocumentManager::destroy(Document* document) {
  // A closing from the document's own command leaves that command's frame alone.
  const ContextScope application(*this, nullptr);
  report(Event::doc, L"to be destroyed " + document->title());
  fire(L"documentToBeDestroyed", &Reactor::documentToBeDestroyed, document);
  Host::instance().modules().documentUnloading(document);
  Host::instance().input().dropAll(document);
  document->hold_.reset();
  document->drawing_->close();
  const auto at = std::find_if(open_.begin(), open_.end(),
                               [&](const auto& one) { return one.get() == document; });
  tombstones_.push_back(std::move(*at));
  open_.erase(at);
  eraseIf(order_, [&](const Document* one) { return one == document; });
  document->gone_ = true;
  document->locks_.clear();
  if (acdbHostApplicationServices()->workingDatabase() == document->databaseOf()) {
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  }
  if (active_ == document) active_ = nullptr;
  report(
      {Event::doc, Event::documentDestroyed, document->title(), L"destroyed " + document->title()});
  const std::wstring name = document->path_;
  fire(L"documentDestroyed", &Reactor::documentDestroyed, name.c_str());
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

// Changes a lock with its events, which are sent in the context of the command that locks. False if
// the document is destroyed by one of them.
bool DocumentManager::changeLock(Document* document, AcAp::DocLockMode mine, AcAp::DocLockMode next,
                                 const std::wstring& name, const std::function<void()>& change) {
  reactors_.send(L"documentLockModeWillChange", &Reactor::documentLockModeWillChange, document,
                 mine, next, mine, name.c_str());
  if (document->gone_) return false;
  change();
  reactors_.send(L"documentLockModeChanged", &Reactor::documentLockModeChanged, document, mine,
                 next, next, name.c_str());
  return true;
}

bool DocumentManager::lock(Document* document, AcAp::DocLockMode mode, const std::wstring& name) {
  if (!isOpen(document)) return false;
  if (refusals_ > 0) {
    --refusals_;
    report(Event::doc, L"refused: a lock of " + document->title());
    fire(L"documentLockModeChangeVetoed", &Reactor::documentLockModeChangeVetoed, document,
         name.c_str());
    return false;
  }
  auto& locks = document->locks_;
  return changeLock(document, locks.empty() ? AcAp::kNotLocked : locks.back(), mode, name,
                    [&] { locks.push_back(mode); });
}

void DocumentManager::unlock(Document* document, const std::wstring& name) {
  auto& locks = document->locks_;
  if (document->gone_ || locks.empty()) return;
  const auto next = locks.size() > 1 ? locks[locks.size() - 2] : AcAp::kNotLocked;
  changeLock(document, locks.back(), next, L"#" + name, [&] { locks.pop_back(); });
}

}  // namespace wb
