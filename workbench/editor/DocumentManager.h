#pragma once

#include <windows.h>

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "editor/Callbacks.h"
#include "notserved/Classes.h"

namespace wb {

class Drawing;

/// Keeps a drawing's file open for writing, so that nobody else writes it; others may read.
struct CloseFile {
  void operator()(HANDLE file) const { CloseHandle(file); }
};
using FileHold = std::unique_ptr<void, CloseFile>;

/// An open drawing. After its closing it stays in memory as a tombstone: an application that still
/// uses it is reported as an `error` instead of taking the process down.
class Document : public NotServedAcApDocument {
 public:
  Document(std::wstring path, bool readOnly);
  ~Document() override;

  const ACHAR* fileName() const override;
  AcDbDatabase* database() const override;
  bool isReadOnly() const override;
  AcAp::DocLockMode lockMode(bool includeMine = false) const override;
  /// Whether somebody holds a lock under which the drawing may be changed.
  bool isWriteLocked() const;

  /// The same without the check for a late use; `path` is empty for a drawing never saved.
  const std::wstring& path() const { return path_; }
  /// The path, or the caption of a drawing never saved.
  std::wstring title() const { return path_.empty() ? caption_ : path_; }
  Drawing* drawing() const { return drawing_.get(); }
  AcDbDatabase* databaseOf() const;
  bool readOnly() const { return readOnly_; }
  bool gone() const { return gone_; }

 private:
  friend class DocumentManager;
  /// Runs a call of an application's, which is an error once the document is destroyed.
  template <class Result, class Body>
  Result serve(const wchar_t* name, Result failure, const Body& body) const;

  std::wstring path_;
  std::wstring caption_;
  std::unique_ptr<Drawing> drawing_;
  FileHold hold_;
  bool readOnly_ = false;
  bool closing_ = false;
  bool gone_ = false;
  std::vector<AcAp::DocLockMode> locks_;
};

/// The open documents, their life and its events.
class DocumentManager : public NotServedAcApDocManager {
 public:
  AcApDocument* curDocument() const override;
  AcApDocument* mdiActiveDocument() const override;
  AcApDocument* document(const AcDbDatabase* pDb) const override;
  AcApDocumentIterator* newAcApDocumentIterator() override;
  void addReactor(AcApDocManagerReactor* reactor) override;
  void removeReactor(AcApDocManagerReactor* reactor) override;
  Acad::ErrorStatus sendStringToExecute(AcApDocument* pAcTargetDocument, const ACHAR* pszExecute,
                                        bool bActivate, bool bWrapUpInactiveDoc,
                                        bool bEchoString) override;
  Acad::ErrorStatus appContextOpenDocument(const ACHAR* pszDrawingName) override;
  Acad::ErrorStatus closeDocument(AcApDocument* pAcTargetDocument) override;
  void executeInApplicationContext(void (*procAddr)(void*), void* pData) const override;
  bool isApplicationContext() const override;

  /// Opens and activates. A file that is write-protected, or held for writing by anybody, opens
  /// read-only.
  /// @throws HostError if it can't be opened, which is reported
  void open(const std::wstring& path, bool readOnly);
  /// @throws HostError if there can be no further drawing, which is reported
  void create();
  void activate(Document* document);
  /// Saves under the document's own name, or as `path`.
  /// @throws HostError if it can't be saved
  void save(Document* document, const std::wstring& path);
  /// The same, but the user is asked for the name that a drawing lacks, and a failure is shown.
  /// @return whether it was saved
  bool saveForUser(Document* document);
  /// The same under another name.
  bool saveForUserAs(Document* document, const std::wstring& path);
  /// Asks about unsaved changes if `ask`. False if the user keeps the document.
  bool close(Document* document, bool ask);
  /// Closes everything without asking.
  void closeAll();
  /// A new document takes the address of the one closed last, as memory is used again in the host:
  /// what an application still has of the old one then applies to the new one.
  void reuseAddresses() { reusesAddresses_ = true; }

  Document* active() const { return active_; }
  Document* find(std::wstring_view path) const;
  Document* find(const AcDbDatabase* database) const;
  bool isOpen(const AcApDocument* document) const;
  std::vector<Document*> all() const;

  /// The document whose command runs, null in the application context.
  Document* context() const { return context_; }
  /// Puts the work of its life span into a document's context, or the application's.
  class ContextScope {
   public:
    explicit ContextScope(DocumentManager& manager, Document* context)
        : manager_(manager), previous_(std::exchange(manager.context_, context)) {}
    ~ContextScope() { manager_.context_ = previous_; }
    ContextScope(const ContextScope&) = delete;

   private:
    DocumentManager& manager_;
    Document* previous_;
  };

  /// A lock with its events; `name` is the command's global name. False if it is refused.
  bool lock(Document* document, AcAp::DocLockMode mode, const std::wstring& name);
  void unlock(Document* document, const std::wstring& name);
  /// The next `count` requests for a lock are refused.
  void refuseLocks(unsigned count) { refusals_ = count; }

  bool hasDeferred() const { return !deferred_.empty(); }
  void runDeferred();

  /// Forgets the reactors that an application left behind.
  void forgetModule(HMODULE module) { reactors_.forgetModule(module); }

 private:
  class Iterator;
  /// Sends an event of the application context.
  template <class Method, class... Arguments>
  void fire(const wchar_t* name, Method method, Arguments... arguments) {
    const ContextScope application(*this, nullptr);
    reactors_.send(name, method, arguments...);
  }
  bool changeLock(Document* document, AcAp::DocLockMode mine, AcAp::DocLockMode next,
                  const std::wstring& name, const std::function<void()>& change);
  std::unique_ptr<Document> make(const std::wstring& path, bool readOnly);
  void adopt(std::unique_ptr<Document> document, const std::wstring& what,
             const std::function<void()>& fill);
  void bringToTop(Document* document, bool fresh);
  void holdAgain(Document* document);
  template <class Predicate>
  Document* findWhere(Predicate is) const;
  void requireRoomForAnother() const;
  bool disposeOfChanges(Document* document);
  void destroy(Document* document);

  std::vector<std::unique_ptr<Document>> open_;
  std::vector<std::unique_ptr<Document>> tombstones_;
  std::vector<Document*> order_;  // by activation, the active one last
  Document* active_ = nullptr;
  Document* context_ = nullptr;
  ReactorList<AcApDocManagerReactor> reactors_{L"AcApDocManagerReactor"};
  mutable std::deque<std::pair<void (*)(void*), void*>> deferred_;
  unsigned refusals_ = 0;
  unsigned unnamed_ = 0;
  bool reusesAddresses_ = false;
};

}  // namespace wb
