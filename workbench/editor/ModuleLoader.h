#pragma once

#include <windows.h>

#include <rxdefs.h>

#include <memory>
#include <string>
#include <vector>

#include "core/Accounts.h"

namespace wb {

class Document;

/// The loaded applications and the messages to them.
///
/// An application file must be a 64-bit library that exports `acrxEntryPoint` and
/// `acrxGetApiVersion`; the latter answers the API level that it was built for in the high word,
/// which must be 17. It is asked before the first message. AutoCAD knows what its kit's routine of
/// that name answers; here it is the project's own convention.
class ModuleLoader {
 public:
  ModuleLoader();
  ~ModuleLoader();

  /// Loads by full path: kInitAppMsg, then kLoadDwgMsg for each open document.
  /// @throws HostError if it can't be loaded; nothing of it stays then
  void load(const std::wstring& file);
  /// kUnloadDwgMsg for each document, kUnloadAppMsg, then the library goes.
  /// @throws HostError if it isn't loaded or can't be unloaded now
  void unload(const std::wstring& file);
  /// Unloads all, last loaded first, whether they allow it or not: the editor ends.
  void unloadAll();

  void sendToAll(AcRx::AppMsgCode message);
  void documentLoaded(Document* document);
  void documentUnloading(Document* document);
  /// kInvkSubrMsg.
  int invoke(HMODULE module);
  /// False if an application is loaded that can only work with a single document.
  bool allAwareOfDocuments() const;

  /// Who gets a message at the moment, and for which document; null outside a message.
  HMODULE messaged() const;
  Document* messagedDocument() const { return document; }

  /// What the dynamic linker is told, by the packet of kInitAppMsg. False for an unknown packet.
  bool setLocked(const void* packet, bool locked);
  bool setAwareOfDocuments(const void* packet, bool aware);

 private:
  struct Module;
  Module* find(const void* packet) const;
  Module* findFile(const std::wstring& file) const;
  AcRx::AppRetCode send(Module& module, AcRx::AppMsgCode message, Document* about = nullptr);
  static void map(Module& module);
  void end(Module& module, bool force);

  std::vector<std::unique_ptr<Module>> modules;
  Module* current = nullptr;
  Document* document = nullptr;
};

}  // namespace wb
