#pragma once

#include <windows.h>

#include <rxdefs.h>

#include <memory>
#include <string>
#include <vector>

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
  ModuleLoader();
  ~ModuleLoader();

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

  /// For the dynamic linker, by the packet of kInitAppMsg. False for an unknown packet.
  bool setLocked(const void* packet, bool locked);
  bool setAwareOfDocuments(const void* packet, bool aware);

 private:
  struct Function;
  struct Module;
  Module* find(const void* packet) const;
  Module* findFile(const std::wstring& file) const;
  AcRx::AppRetCode send(Module& module, AcRx::AppMsgCode message, Document* about = nullptr);
  static void map(Module& module);
  void end(Module& module, bool force);
  template <class Predicate>
  void forget(Predicate is);

  std::vector<std::unique_ptr<Module>> modules;
  Module* current = nullptr;  ///< who gets a message at the moment
  Document* currentDocument = nullptr;
};

}  // namespace wb
