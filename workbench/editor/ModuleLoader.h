#pragma once

#include <windows.h>

#include <rxdefs.h>

#include <memory>
#include <string>
#include <vector>

#include "core/Accounts.h"

namespace wb {

class Document;

/// The loaded applications, the messages to them, and the functions that they define for LISP.
///
/// An application file must be a 64-bit library that exports `acrxEntryPoint` and
/// `acrxGetApiVersion`; the latter returns the API level that it was built for in the high word,
/// which must be 17. It is asked before the first message. AutoCAD knows what its kit's routine of
/// that name returns; here it is the project's own convention.
class ModuleLoader {
 public:
  /// Loads by full path: kInitAppMsg, then kLoadDwgMsg for each open document.
  /// @throws HostError if it can't be loaded; nothing of it stays then
  void load(const std::wstring& file);
  /// kUnloadDwgMsg for each document, kUnloadAppMsg, then the library is unmapped.
  /// @throws HostError if it isn't loaded or can't be unloaded now
  void unload(const std::wstring& file);
  /// Unloads all, last loaded first, whether they allow it or not: the editor ends.
  void unloadAll();

  void sendToAll(AcRx::AppMsgCode message, Document* about = nullptr);
  /// kUnloadDwgMsg; then what was defined for the document is removed.
  void documentUnloading(Document* document);
  /// False if an application is loaded that can only work with a single document.
  bool allAwareOfDocuments() const;

  /// Defines a function of LISP's, for the application and the document of the message that is
  /// being sent; false outside one.
  bool define(const std::wstring& name, int code);
  /// What it calls; without one the application gets kInvkSubrMsg. False for an unknown code.
  bool setFunction(int (*function)(void), int code);
  /// Runs "(NAME)", or NAME if "C:NAME" is defined. False if it is neither.
  bool runFunction(const std::wstring& token, Document* document);

  /// A function of LISP's.
  struct Function {
    Document* document;
    std::wstring name;
    int code;
    int (*call)(void);
  };
  /// A loaded application.
  struct Module {
    std::wstring name() const { return file.substr(file.find_last_of(L"\\/") + 1); }

    std::wstring file;
    HMODULE handle = nullptr;
    AcRx::AppRetCode (*entry)(AcRx::AppMsgCode, void*) = nullptr;
    bool locked = true;  ///< until the application unlocks itself with the dynamic linker
    bool awareOfDocuments = false;
    Ticket since = nextTicket();
    std::vector<Function> functions;
  };
  /// By the packet of kInitAppMsg; null for an unknown one.
  Module* find(const void* packet) const;

 private:
  Module* findFile(const std::wstring& file) const;
  AcRx::AppRetCode send(Module& module, AcRx::AppMsgCode message, Document* about = nullptr);
  static void map(Module& module);
  void end(Module& module, bool force);
  template <class Predicate>
  void forget(Predicate is);

  std::vector<std::unique_ptr<Module>> modules;
  Module* current = nullptr;  ///< the receiver of the message that is being sent
  Document* currentDocument = nullptr;
};

}  // namespace wb
