#include "editor/DocumentManager.h"

#include <algorithm>

#include "core/Lists.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "database/Drawing.h"
#include "editor/Host.h"
#include "faults/Faults.h"
#include "gate/HostCall.h"

namespace wb {

Document::Document(std::wstring path, bool readOnly)
    : path_(std::move(path)), readOnly_(readOnly) {}

Document::~Document() = default;

AcDbDatabase* Document::databaseOf() const { return drawing_ ? drawing_->database() : nullptr; }

template <class Result, class Body>
Result Document::serve(const wchar_t* name, Result failure, const Body& body) const {
  return HostCall(name).run(failure, [&]() -> Result {
    if (gone_) {
      std::wstring method = name;
      method.replace(method.find(L'.'), 1, L"::");
      report(Event::error, method + L" of the destroyed document " + title());
    }
    return body();
  });
}

const ACHAR* Document::fileName() const {
  return serve(L"AcApDocument.fileName", L"", [&] { return path_.c_str(); });
}

AcDbDatabase* Document::database() const {
  return serve<AcDbDatabase*>(L"AcApDocument.database", nullptr, [&] { return databaseOf(); });
}

bool Document::isReadOnly() const {
  return serve(L"AcApDocument.isReadOnly", false, [&] { return readOnly_; });
}

bool Document::isWriteLocked() const {
  const AcAp::DocLockMode mode = lockMode(true);
  return mode != AcAp::kNotLocked && mode != AcAp::kRead && mode != AcAp::kNone;
}

AcAp::DocLockMode Document::lockMode(bool includeMine) const {
  return serve(L"AcApDocument.lockMode", AcAp::kNotLocked, [&] {
    // In a document's context its locks are the asker's own.
    const bool mine = Host::instance().documents().context() == this;
    if (locks_.empty() || (mine && !includeMine)) return AcAp::kNotLocked;
    return *std::max_element(locks_.begin(), locks_.end());
  });
}

/// Walks the documents that were open when it was made, past those closed since.
class DocumentManager::Iterator : public AcApDocumentIterator {
 public:
  explicit Iterator(const DocumentManager& manager)
      : manager_(manager),
        documents_(manager.all()),
        ticket_(trackResource(L"iterator", L"AcApDocumentIterator")) {}
  ~Iterator() override {
    const HostCall call(L"host.~AcApDocumentIterator");
    releaseResource(ticket_);
  }

  bool done() const override {
    return HostCall(L"AcApDocumentIterator.done").run(true, [&] {
      return skipClosed() == documents_.size();
    });
  }
  void step() override {
    HostCall(L"AcApDocumentIterator.step").run([&] {
      index_ = std::min(skipClosed() + 1, documents_.size());
    });
  }
  AcApDocument* document() override {
    return HostCall(L"AcApDocumentIterator.document").run<AcApDocument*>(nullptr, [&] {
      const size_t at = skipClosed();
      return at < documents_.size() ? documents_[at] : nullptr;
    });
  }

 private:
  size_t skipClosed() const {
    while (index_ < documents_.size() && !manager_.isOpen(documents_[index_])) ++index_;
    return index_;
  }

  const DocumentManager& manager_;
  std::vector<Document*> documents_;
  mutable size_t index_ = 0;
  Ticket ticket_;
};

AcApDocument* DocumentManager::curDocument() const {
  return HostCall(L"AcApDocManager.curDocument").run<AcApDocument*>(nullptr, [&] {
    return context_ && !context_->gone() ? context_ : active_;
  });
}

AcApDocument* DocumentManager::mdiActiveDocument() const {
  return HostCall(L"AcApDocManager.mdiActiveDocument").run<AcApDocument*>(nullptr, [&] {
    return active_;
  });
}

AcApDocument* DocumentManager::document(const AcDbDatabase* pDb) const {
  return HostCall(L"AcApDocManager.document").run<AcApDocument*>(nullptr, [&] {
    return find(pDb);
  });
}

AcApDocumentIterator* DocumentManager::newAcApDocumentIterator() {
  const HostCall call(L"AcApDocManager.newAcApDocumentIterator");
  return call.run<AcApDocumentIterator*>(nullptr, [&] { return new Iterator(*this); });
}

void DocumentManager::addReactor(AcApDocManagerReactor* reactor) {
  HostCall(L"AcApDocManager.addReactor").run([&] { reactors_.add(reactor); });
}

void DocumentManager::removeReactor(AcApDocManagerReactor* reactor) {
  HostCall(L"AcApDocManager.removeReactor").run([&] { reactors_.remove(reactor); });
}

Acad::ErrorStatus DocumentManager::sendStringToExecute(AcApDocument* pAcTargetDocument,
                                                       const ACHAR* pszExecute, bool bActivate,
                                                       bool bWrapUpInactiveDoc, bool bEchoString) {
  return HostCall(L"AcApDocManager.sendStringToExecute").run(Acad::eInvalidInput, [&] {
    if (!pszExecute || !isOpen(pAcTargetDocument)) {
      report(Event::send, L"refused: " + (pszExecute ? quoted(pszExecute) : L"no text"));
      return pszExecute ? Acad::eNoDocument : Acad::eInvalidInput;
    }
    auto* target = static_cast<Document*>(pAcTargetDocument);
    report(Event::send, quoted(pszExecute) + (target == active_ ? L"" : L" to " + target->title()));
    recordDetail(L"sent", std::wstring(bActivate ? L"activate" : L"stay") +
                              (bWrapUpInactiveDoc ? L", wrap up" : L"") +
                              (bEchoString ? L", echo" : L""));
    Host::instance().input().add(target, pszExecute, bActivate, InputQueue::Origin::Sent);
    return Acad::eOk;
  });
}

Acad::ErrorStatus DocumentManager::appContextOpenDocument(const ACHAR* pszDrawingName) {
  return HostCall(L"AcApDocManager.appContextOpenDocument").run(Acad::eFilerError, [&] {
    if (!pszDrawingName || !*pszDrawingName) return Acad::eInvalidInput;
    // The caller's text may belong to a document that the queued input closes.
    const std::wstring path = pszDrawingName;
    if (!isApplicationContext()) {
      report(Event::doc, L"refused: opening " + path + L" from a document's context");
      return Acad::eInvalidContext;
    }
    // Drawings change only while nothing is pending at the command line.
    Host::instance().runner().runQueued();
    // The fault is the disk's: what was pending has been run by then.
    if (FAILED(takeFault(L"host.appContextOpenDocument"))) {
      report(Event::doc, L"refused: opening " + path + L": the disk fails");
      return Acad::eFileSystemErr;
    }
    open(path, false);
    return Acad::eOk;
  });
}

Acad::ErrorStatus DocumentManager::closeDocument(AcApDocument* pAcTargetDocument) {
  return HostCall(L"AcApDocManager.closeDocument").run(Acad::eUserBreak, [&] {
    if (!isOpen(pAcTargetDocument)) return Acad::eNoDocument;
    return close(static_cast<Document*>(pAcTargetDocument), true) ? Acad::eOk : Acad::eUserBreak;
  });
}

void DocumentManager::executeInApplicationContext(void (*procAddr)(void*), void* pData) const {
  const HostCall call(L"AcApDocManager.executeInApplicationContext");
  if (!procAddr || call.refused()) return;
  if (context_ == nullptr) {
    const InModule outside;
    procAddr(pData);
  } else {
    // The running command's context isn't left before the command is over.
    deferred_.emplace_back(procAddr, pData);
  }
}

void DocumentManager::runDeferred() {
  while (!deferred_.empty() && isApplicationContext()) {
    const auto call = deferred_.front();
    deferred_.pop_front();
    const InModule outside;
    runGuarded(L"executeInApplicationContext", [&] { call.first(call.second); });
  }
}

bool DocumentManager::isApplicationContext() const {
  return HostCall(L"AcApDocManager.isApplicationContext").run(false, [&] {
    return context_ == nullptr;
  });
}

template <class Predicate>
Document* DocumentManager::findWhere(Predicate is) const {
  const auto* found = findIf(open_, is);
  return found ? found->get() : nullptr;
}

Document* DocumentManager::find(std::wstring_view path) const {
  return findWhere([&](const auto& one) { return sameName(one->title(), path); });
}

Document* DocumentManager::find(const AcDbDatabase* database) const {
  return findWhere([&](const auto& one) { return database && one->databaseOf() == database; });
}

bool DocumentManager::isOpen(const AcApDocument* document) const {
  return findIf(open_, [&](const auto& one) { return one.get() == document; }) != nullptr;
}

std::vector<Document*> DocumentManager::all() const {
  std::vector<Document*> documents;
  documents.reserve(open_.size());
  for (const auto& one : open_) documents.push_back(one.get());
  return documents;
}

}  // namespace wb
