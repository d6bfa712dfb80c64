// What the module's work can't do without, in plain sequence and for one drawing without xrefs: the
// benchmarks load it in the module's place. It handles no failure; the benchmarks compare its calls
// of the client with the module's.
#include <windows.h>

#include <acdocman.h>
#include <aced.h>
#include <acedads.h>
#include <dbapserv.h>
#include <dbents.h>
#include <rxdefs.h>
#include <rxdlinkr.h>

#include <map>
#include <memory>
#include <string>

#include "BareVault.h"
#include "BareWindow.h"
#include "foundation/AddinSettings.h"
#include "foundation/HostExtras.h"
#include "frame/HostService.h"

namespace {

class Apartment {
 public:
  Apartment() { CoInitialize(nullptr); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() { CoUninitialize(); }
};

HINSTANCE library = nullptr;
tessaro::VaultClientPtr client;
Apartment apartment;
std::unique_ptr<bare::StatusWindow> statusWindow;
std::map<AcApDocument*, bool> guarded;

bool guardIsOff() {
  HKEY key = nullptr;
  DWORD value = 1, size = sizeof(value);
  RegOpenKeyExW(HKEY_CURRENT_USER, tessaro::addinSettingsKey, 0, KEY_READ, &key);
  RegQueryValueExW(key, L"EditWarning", nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size);
  RegCloseKey(key);
  return value == 0;
}

bool isModified() {
  resbuf value = {};
  acedGetVar(L"DBMOD", &value);
  return value.resval.rint != 0;
}

/// The edit guard's look; the drawings measured aren't changed.
void guard(AcApDocument* document) {
  if (guardIsOff()) return;
  const auto [entry, isNew] = guarded.insert({document, false});
  if (isNew) entry->second = !bare::VaultEntry(document->fileName()).isHeldHere();
  if (entry->second && isModified()) _com_issue_error(E_UNEXPECTED);
}

class DocumentReactor : public AcApDocManagerReactor {
  void documentToBeDestroyed(AcApDocument* document) override {
    guarded.erase(document);
    statusWindow->documentDestroyed(document);
  }
  void documentActivated(AcApDocument* document) override {
    statusWindow->documentActivated(document);
  }
  void documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode, AcAp::DocLockMode,
                               AcAp::DocLockMode mode, const ACHAR*) override {
    const bool isFree = mode == AcAp::kNone || mode == AcAp::kNotLocked;
    if (isFree && document == acDocManagerPtr()->curDocument()) guard(document);
  }
};

class SaveReactor : public AcEditorReactor {
  void beginSave(AcDbDatabase* database, const ACHAR*) override {
    guard(acDocManagerPtr()->document(database));
  }
  void saveComplete(AcDbDatabase* database, const ACHAR* name) override {
    statusWindow->documentSaved(database, name);
  }
};

class Menu : public AcEdUIContext {
 public:
  Menu() : menu(CreatePopupMenu()), versions(CreatePopupMenu()) {}
  Menu(const Menu&) = delete;
  Menu& operator=(const Menu&) = delete;
  ~Menu() override {
    DestroyMenu(menu);
    DestroyMenu(versions);
  }

  void* getMenuContext(const AcRxClass*, const AcDbObjectIdArray&) override { return &menu; }
  void onCommand(Adesk::UInt32) override {}

 private:
  HMENU menu, versions;
};

std::unique_ptr<Menu> menu;
std::unique_ptr<DocumentReactor> documentReactor;
std::unique_ptr<SaveReactor> saveReactor;

void doNothing() {}

/// The check-out of the current drawing, up to its being open again.
void checkOutSilently() {
  CoInitialize(nullptr);
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  AcApDocument* document = acDocManagerPtr()->document(database);
  const std::wstring path = document->fileName();
  {
    const bare::VaultEntry entry(path.c_str());
    if (!entry.isCheckedOut()) {
      if (isModified()) acdbSetDbmod(database, 0);
      acDocManagerPtr()->sendStringToExecute(document, L"_CLOSE ", true, false, true);
      entry.checkOut();
      acDocManagerPtr()->appContextOpenDocument(path.c_str());
    }
  }
  CoUninitialize();
}

constexpr wchar_t group[] = L"Tessaro_TessaroAcad";

AcEdCommandStack* commandStack() {
  return AcEdCommandStack::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

void addCommands() {
  constexpr struct {
    const wchar_t* name;
    Adesk::Int32 flags;
  } commands[] = {
      {L"Tessaro_install", ACRX_CMD_MODAL},
      {L"Tessaro_uninstall", ACRX_CMD_MODAL},
      {L"Tessaro_update", ACRX_CMD_MODAL},
      {L"Tessaro_updatecurrent", ACRX_CMD_MODAL},
      {L"Tessaro_lockxref", ACRX_CMD_REDRAW},
      {L"Tessaro_unlockxref", ACRX_CMD_REDRAW},
      {L"Tessaro_lock", ACRX_CMD_SESSION},
      {L"Tessaro_unlock", ACRX_CMD_REDRAW},
      {L"Tessaro_getxrefversion", ACRX_CMD_REDRAW},
      {L"Tessaro_getxrefver2", ACRX_CMD_REDRAW},
      {L"Tessaro_editxref", ACRX_CMD_REDRAW},
      {L"Tessaro_getlatestxrefs", ACRX_CMD_MODAL},
      {L"Tessaro_settings", ACRX_CMD_MODAL},
      {L"Tessaro_properties", ACRX_CMD_REDRAW},
      {L"Tessaro_telllockedelsewhere", ACRX_CMD_SESSION},
      {L"Tessaro_asklock", ACRX_CMD_SESSION},
  };
  AcEdCommandStack* stack = commandStack();
  const wchar_t silent[] = L"Tessaro_locksilent";
  stack->addCommand(group, silent, silent, ACRX_CMD_SESSION, checkOutSilently);
  for (const auto& command : commands) {
    stack->addCommand(group, command.name, command.name, command.flags, doNothing);
  }
}

AcEditor* editor() { return tessaro::hostServiceOfClass<AcEditor>(L"AcEditor", L"AcEditor"); }

Acad::ErrorStatus selectNothing(short*, ACHAR*&, void*, const int, const ACHAR*, const ACHAR*,
                                const ACHAR*, const ACHAR*, int*, bool*, const ACHAR*, void*) {
  return Acad::eNotHandled;
}

void registerSelection(bool unRegister) {
  acdbHostApplicationServices()->registerSelectFileCallback(L"Tessaro", selectNothing, unRegister,
                                                            false);
}

void start(void* packet) {
  const auto* linker = AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
  linker->registerAppMDIAware(packet);
  linker->unlockApplication(packet);
  menu = std::make_unique<Menu>();
  saveReactor = std::make_unique<SaveReactor>();
  documentReactor = std::make_unique<DocumentReactor>();
  addCommands();
  acedAddObjectContextMenu(AcDbBlockReference::desc(), menu.get(), packet);
  editor()->addReactor(saveReactor.get());
  acDocManagerPtr()->addReactor(documentReactor.get());
  statusWindow = std::make_unique<bare::StatusWindow>(library, adsw_acadMainWnd());
  client.CreateInstance(__uuidof(VaultMain), nullptr, CLSCTX_ALL);
  registerSelection(false);
}

void end() {
  commandStack()->removeGroup(group);
  registerSelection(true);
  acedRemoveObjectContextMenu(AcDbBlockReference::desc(), menu.get());
  editor()->removeReactor(saveReactor.get());
  acDocManagerPtr()->removeReactor(documentReactor.get());
  menu.reset();
  saveReactor.reset();
  documentReactor.reset();
  statusWindow.reset();
  bare::releaseTexts();
}

}  // namespace

extern "C" {

__declspec(dllexport) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
  if (message == AcRx::kInitAppMsg) start(packet);
  if (message == AcRx::kUnloadAppMsg) end();
  return AcRx::kRetOK;
}

__declspec(dllexport) int acrxGetApiVersion() { return 17 << 16; }
}

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) library = instance;
  return TRUE;
}
