// An application as the stand-in host's tests need it: it writes what the host does with it on the
// command line, where a test finds it in the transcript.

#include <windows.h>

#include <comdef.h>

#include <acdocman.h>
#include <aced.h>
#include <acutmem.h>
#include <adscodes.h>
#include <dbapserv.h>
#include <rxclass.h>
#include <rxdlinkr.h>
#include <rxregsvc.h>

#include <string>

namespace {

std::wstring fileOf(const wchar_t* path) {
  const std::wstring text = path;
  return text.substr(text.find_last_of(L'\\') + 1);
}

void say(const std::wstring& text) { acedPrompt(text.c_str()); }

void event(const wchar_t* name, AcApDocument* document) {
  say(std::wstring(name) + L" " + fileOf(document->fileName()));
}

class Documents : public AcApDocManagerReactor {
 public:
  void documentCreateStarted(AcApDocument*) override { say(L"documentCreateStarted"); }
  void documentCreated(AcApDocument* d) override { event(L"documentCreated", d); }
  void documentToBeDestroyed(AcApDocument* d) override { event(L"documentToBeDestroyed", d); }
  void documentDestroyed(const ACHAR* name) override { say(L"documentDestroyed " + fileOf(name)); }
  void documentCreateCanceled(AcApDocument*) override { say(L"documentCreateCanceled"); }
  void documentLockModeWillChange(AcApDocument*, AcAp::DocLockMode, AcAp::DocLockMode,
                                  AcAp::DocLockMode, const ACHAR* name) override {
    say(std::wstring(L"documentLockModeWillChange ") + name);
  }
  void documentLockModeChanged(AcApDocument* d, AcAp::DocLockMode, AcAp::DocLockMode,
                               AcAp::DocLockMode, const ACHAR* name) override {
    say(std::wstring(L"documentLockModeChanged ") + name + L" " +
        std::to_wstring(d->lockMode(true)));
  }
  void documentBecameCurrent(AcApDocument* d) override { event(L"documentBecameCurrent", d); }
  void documentToBeActivated(AcApDocument* d) override { event(L"documentToBeActivated", d); }
  void documentToBeDeactivated(AcApDocument* d) override { event(L"documentToBeDeactivated", d); }
  void documentActivated(AcApDocument* d) override { event(L"documentActivated", d); }
};

class Saves : public AcEditorReactor {
 public:
  void saveComplete(AcDbDatabase* database, const ACHAR* name) override {
    event(fileOf(name).c_str(), acDocManagerPtr()->document(database));
  }
};

void* packet = nullptr;
Documents* documents = nullptr;
Saves* saves = nullptr;

AcRxDynamicLinker* linker() {
  return AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
}

AcEdCommandStack* stack() {
  return AcEdCommandStack::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

void showContext() {
  const bool application = acDocManagerPtr()->isApplicationContext();
  say(application ? L"in the application's context" : L"in a document's context");
}

void openFromDocument() {
  const auto status = acDocManagerPtr()->appContextOpenDocument(L"C:\\any.dxf");
  say(status == Acad::eInvalidContext ? L"invalid context" : L"no refusal");
}

void closeOwnDocument() {
  AcApDocument* document = acDocManagerPtr()->curDocument();
  const auto status = acDocManagerPtr()->closeDocument(document);
  say(L"after closeDocument: " + std::to_wstring(status));
  if (status == Acad::eOk) document->fileName();
}

void askNumber() {
  int value = 0;
  const int result = acedGetInt(L"\nNumber: ", &value);
  say(L"acedGetInt " + std::to_wstring(result) + L" " + std::to_wstring(value));
}

// The narrow text is what this is about.
void saveByNarrowText() {
  resbuf modified = {};
  acedGetVar(L"DBMOD", &modified);
  const int result = acedCommand(RTSTR, "_QSAVE", 0);
  say(L"DBMOD " + std::to_wstring(modified.resval.rint) + L", acedCommand " +
      std::to_wstring(result));
}

void later() {
  acDocManagerPtr()->executeInApplicationContext([](void*) { showContext(); }, nullptr);
  say(L"command over");
}

void loseMemory() {
  ACHAR* lost = nullptr;
  acutNewString(L"lost", lost);
}

// Of each heap that a module has: something that stays, something that doesn't.
void loseOwnMemory() {
  // The compiler leaves out a `new` that it sees to be for nothing.
  static_cast<void>(::operator new(1234));
  ::operator delete(::operator new(1235));
  SysAllocString(L"lost");
  SysFreeString(SysAllocString(L"found"));
  CoTaskMemAlloc(1236);
  CoTaskMemFree(CoTaskMemAlloc(1237));
}

struct TestCommand {
  const wchar_t* name;
  int flags;
  AcRxFunctionPtr work;
};

const TestCommand commands[] = {
    {L"T_DOCUMENT", ACRX_CMD_REDRAW, showContext},
    {L"T_SESSION", ACRX_CMD_SESSION, showContext},
    {L"T_OPENHERE", 0, openFromDocument},
    {L"T_CLOSEOWN", 0, closeOwnDocument},
    {L"T_NUMBER", 0, askNumber},
    {L"T_SAVE", 0, saveByNarrowText},
    {L"T_LATER", 0, later},
    {L"T_LOSE", 0, loseMemory},
    {L"T_LOSEOWN", 0, loseOwnMemory},
    {L"T_STAY", 0, [] { linker()->lockApplication(packet); }},
    {L"T_GO", 0, [] { linker()->unlockApplication(packet); }},
    {L"T_COMERROR", 0, [] { throw _com_error(E_ACCESSDENIED); }},
    {L"T_VALUE", ACRX_CMD_SESSION, [] { throw 7; }},
};

void start(void* appId) {
  packet = appId;
  linker()->unlockApplication(packet);
  linker()->registerAppMDIAware(packet);
  for (const TestCommand& one : commands) {
    const auto status = stack()->addCommand(L"TEST", one.name, one.name, one.flags, one.work);
    if (status != Acad::eOk) say(L"addCommand " + std::to_wstring(status));
  }
  documents = new Documents;
  saves = new Saves;
  acDocManagerPtr()->addReactor(documents);
  static_cast<AcEditor*>(acrxSysRegistry()->at(L"AcEditor"))->addReactor(saves);
}

void end() {
  stack()->removeGroup(L"TEST");
  static_cast<AcEditor*>(acrxSysRegistry()->at(L"AcEditor"))->removeReactor(saves);
  acDocManagerPtr()->removeReactor(documents);
  delete saves;
  delete documents;
}

}  // namespace

extern "C" __declspec(dllexport) int acrxGetApiVersion() { return 17 << 16; }

extern "C" __declspec(dllexport) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message,
                                                                 void* appId) {
  say(L"message " + std::to_wstring(message));
  switch (message) {
    case AcRx::kInitAppMsg:
      start(appId);
      break;
    case AcRx::kUnloadAppMsg:
      end();
      break;
    default:
      break;
  }
  return AcRx::kRetOK;
}
