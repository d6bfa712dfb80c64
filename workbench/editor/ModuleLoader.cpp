#include "editor/ModuleLoader.h"

#include <adscodes.h>

#include <algorithm>
#include <map>
#include <utility>

#include "core/Lists.h"
#include "core/Program.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "editor/FileSelection.h"
#include "editor/Host.h"
#include "gate/HostError.h"
#include "watch/ImportWatch.h"

namespace wb {

// What `acrxGetApiVersion` has to answer in its high word.
static constexpr int apiLevel = 17;

static std::wstring whyNotMapped(DWORD error) {
  static const std::map<DWORD, std::wstring> reasons{
      {ERROR_FILE_NOT_FOUND, L"the file doesn't exist"},
      {ERROR_PATH_NOT_FOUND, L"the file doesn't exist"},
      {ERROR_MOD_NOT_FOUND, L"a library that it needs is missing"},
      {ERROR_BAD_EXE_FORMAT, L"the file is damaged or no 64-bit library"},
      {ERROR_PROC_NOT_FOUND, L"it needs a function that this editor doesn't have"},
      {ERROR_DLL_INIT_FAILED, L"its own start failed"}};
  const auto found = reasons.find(error);
  return found == reasons.end() ? L"Windows error " + std::to_wstring(error) : found->second;
}

ModuleLoader::Module* ModuleLoader::find(const void* packet) const {
  const auto* found = findIf(modules, [&](const auto& one) { return one.get() == packet; });
  return found ? found->get() : nullptr;
}

ModuleLoader::Module* ModuleLoader::findFile(const std::wstring& file) const {
  const auto* found = findIf(modules, [&](const auto& one) {
    return sameName(one->file, file) || sameName(one->name(), file);
  });
  return found ? found->get() : nullptr;
}

/// In the host its own files are there before any application, wherever that lies. A test program
/// has to bring them in.
static void loadHostFiles() {
  for (const wchar_t* file : {L"acad.exe", L"acdb17.dll"}) {
    if (!GetModuleHandleW(file)) LoadLibraryW((programFolder() / file).c_str());
  }
}

void ModuleLoader::map(Module& module) {
  loadHostFiles();
  if (GetFileAttributesW(module.file.c_str()) == INVALID_FILE_ATTRIBUTES) {
    throw HostError(whyNotMapped(ERROR_FILE_NOT_FOUND));
  }
  module.handle = LoadLibraryExW(module.file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (!module.handle) throw HostError(whyNotMapped(GetLastError()));
  const auto version = exportedFunction<int (*)()>(module.handle, "acrxGetApiVersion");
  module.entry = exportedFunction<decltype(module.entry)>(module.handle, "acrxEntryPoint");
  std::wstring reason;
  if (!module.entry || !version) {
    reason = std::wstring(L"it doesn't export ") +
             (module.entry ? L"acrxGetApiVersion" : L"acrxEntryPoint");
  } else if ((version() >> 16) != apiLevel) {
    reason = L"it was built for the API level " + std::to_wstring(version() >> 16) + L", not " +
             std::to_wstring(apiLevel);
  }
  if (reason.empty()) return;
  FreeLibrary(module.handle);
  afterUnmapping();
  throw HostError(reason);
}

void ModuleLoader::load(const std::wstring& file) {
  if (findFile(file)) throw HostError(L"it is loaded already");
  auto owner = std::make_unique<Module>();
  Module& module = *owner;
  module.file = file;
  map(module);
  report(Event::doc, L"application loaded " + module.name());
  modules.push_back(std::move(owner));
  if (Host::instance().onModuleMapped) Host::instance().onModuleMapped(module.handle);
  if (send(module, AcRx::kInitAppMsg) != AcRx::kRetOK) {
    end(module, true);
    throw HostError(L"it refused to start");
  }
  for (Document* one : Host::instance().documents().all()) send(module, AcRx::kLoadDwgMsg, one);
}

void ModuleLoader::unload(const std::wstring& file) {
  Module* module = findFile(file);
  if (!module) throw HostError(L"it isn't loaded");
  if (module->locked) throw HostError(L"it hasn't unlocked itself with the dynamic linker");
  if (current || Host::instance().runner().commandRuns()) throw HostError(L"a command runs");
  end(*module, false);
}

void ModuleLoader::end(Module& module, bool force) {
  Host& host = Host::instance();
  for (Document* one : host.documents().all()) send(module, AcRx::kUnloadDwgMsg, one);
  if (send(module, AcRx::kUnloadAppMsg) == AcRx::kRetError && !force) {
    for (Document* one : host.documents().all()) send(module, AcRx::kLoadDwgMsg, one);
    throw HostError(L"it refuses");
  }
  host.commands().forgetModule(module.handle);
  host.documents().forgetModule(module.handle);
  host.editor().forgetModule(module.handle);
  host.menus().forgetModule(module.handle);
  FileSelection::instance().forgetModule(module.handle);
  if (host.onModuleLeaving) host.onModuleLeaving(module.handle);
  const std::wstring name = module.name();
  const Ticket since = module.since;
  const HMODULE handle = module.handle;
  FreeLibrary(handle);
  afterUnmapping();
  eraseIf(modules, [&](const auto& one) { return one.get() == &module; });
  report(Event::doc, L"application unloaded " + name);
  host.runner().reportLeaks(since, true);
}

void ModuleLoader::unloadAll() {
  while (!modules.empty()) end(*modules.back(), true);
}

AcRx::AppRetCode ModuleLoader::send(Module& module, AcRx::AppMsgCode message, Document* about) {
  Module* const before = std::exchange(current, &module);
  Document* const aboutBefore = std::exchange(currentDocument, about);
  AcRx::AppRetCode result = AcRx::kRetError;
  const InModule outside;
  runGuarded(L"acrxEntryPoint(" + std::to_wstring(message) + L")",
             [&] { result = module.entry(message, &module); });
  current = before;
  currentDocument = aboutBefore;
  return result;
}

void ModuleLoader::sendToAll(AcRx::AppMsgCode message, Document* about) {
  for (const auto& one : modules) send(*one, message, about);
}

template <class Predicate>
void ModuleLoader::forget(Predicate is) {
  for (const auto& one : modules) eraseIf(one->functions, is);
}

void ModuleLoader::documentUnloading(Document* unloading) {
  sendToAll(AcRx::kUnloadDwgMsg, unloading);
  forget([&](const Function& function) { return function.document == unloading; });
}

bool ModuleLoader::allAwareOfDocuments() const {
  return std::all_of(modules.begin(), modules.end(),
                     [](const auto& one) { return one->awareOfDocuments; });
}

bool ModuleLoader::define(const std::wstring& name, int code) {
  if (!current || !currentDocument) return false;
  forget([&](const Function& function) {
    return function.document == currentDocument && sameName(function.name, name);
  });
  current->functions.push_back({currentDocument, name, code, nullptr});
  return true;
}

bool ModuleLoader::setFunction(int (*call)(void), int code) {
  if (!current) return false;
  bool found = false;
  for (Function& function : current->functions) {
    if (function.document != currentDocument || function.code != code) continue;
    function.call = call;
    found = true;
  }
  return found;
}

bool ModuleLoader::runFunction(const std::wstring& token, Document* document) {
  std::wstring name = L"C:" + token;
  if (token.size() > 2 && token.front() == L'(' && token.back() == L')') {
    name = token.substr(1, token.size() - 2);
  }
  for (const auto& module : modules) {
    for (const Function& function : module->functions) {
      if (function.document != document || !sameName(function.name, name)) continue;
      const auto work = [this, &module = *module, call = function.call] {
        const InModule outside;
        const int result = call ? call() : send(module, AcRx::kInvkSubrMsg);
        if (result != RTNORM && result != AcRx::kRetOK) {
          CommandRunner::print(L"; error: ADS request error");
        }
      };
      Host::instance().runner().run({{}, L"(" + function.name + L")", {}, 0, work}, document);
      return true;
    }
  }
  return false;
}

}  // namespace wb
