#include "frame/ArxMfcApp.h"

#include <memory>

#include <aced.h>
#include <acedads.h>
#include <adscodes.h>
#include <rxdlinkr.h>
#include <rxregsvc.h>

#include "foundation/AppMessageBox.h"
#include "foundation/Border.h"
#include "foundation/FormatText.h"
#include "foundation/ModuleFile.h"
#include "frame/CommandGuard.h"
#include "frame/HostService.h"

namespace tessaro {

ArxMfcApp::ArxMfcApp(const wchar_t* prefixText, int prefixCommands, int prefixFunctions,
                     int linkerFlag)
    : prefixCommands(prefixCommands), prefixFunctions(prefixFunctions), linkerFlag(linkerFlag) {
  setCurrentApp(this);
  prefix = prefixText;
}

ArxMfcApp::~ArxMfcApp() { deleteFunctions(); }

bool ArxMfcApp::linkerChoice() { return true; }
AcRx::AppRetCode ArxMfcApp::initApp(void*) { return AcRx::kRetOK; }
AcRx::AppRetCode ArxMfcApp::unloadApp(void*) { return AcRx::kRetOK; }
AcRx::AppRetCode ArxMfcApp::loadDwg(void*) { return AcRx::kRetOK; }
AcRx::AppRetCode ArxMfcApp::unloadDwg(void*) { return AcRx::kRetOK; }
AcRx::AppRetCode ArxMfcApp::invokeSubr(void*) { return AcRx::kRetOK; }
AcRx::AppRetCode ArxMfcApp::configure(void*) { return AcRx::kRetOK; }
AcRx::AppRetCode ArxMfcApp::endDrawing(void*) { return AcRx::kRetOK; }
AcRx::AppRetCode ArxMfcApp::quitDrawing(void*) { return AcRx::kRetOK; }
AcRx::AppRetCode ArxMfcApp::saveDrawing(void*) { return AcRx::kRetOK; }
AcRx::AppRetCode ArxMfcApp::nullMessage(void*) { return AcRx::kRetOK; }
int ArxMfcApp::beginCommand() { return 1; }
void ArxMfcApp::endCommand() {}
int ArxMfcApp::getServiceName(CString&) { return 0; }

AcRx::AppRetCode ArxMfcApp::dispatch(AcRx::AppMsgCode message, void* pkt) {
  switch (message) {
    case AcRx::kNullMsg:
      return nullMessage(pkt);
    case AcRx::kInitAppMsg:
      return start(pkt);
    case AcRx::kUnloadAppMsg:
      removeRegistrations();
      return unloadApp(pkt);
    case AcRx::kLoadDwgMsg:
      documentLoaded = 1;
      atBorder([this] { defineLispFunctions(); });
      return loadDwg(pkt);
    case AcRx::kUnloadDwgMsg: {
      const AcRx::AppRetCode result = unloadDwg(pkt);
      documentLoaded = 0;
      return result;
    }
    case AcRx::kInvkSubrMsg:
      return invokeSubr(pkt);
    case AcRx::kCfgMsg:
      return configure(pkt);
    case AcRx::kEndMsg:
      return endDrawing(pkt);
    case AcRx::kQuitMsg:
      return quitDrawing(pkt);
    case AcRx::kSaveMsg:
      return saveDrawing(pkt);
    default:
      return AcRx::kRetOK;
  }
}

AcRx::AppRetCode ArxMfcApp::start(void* pkt) {
  if (const auto* linker = hostService<AcRxDynamicLinker>(L"DynamicLinker")) {
    if (linkerChoice()) {
      linker->registerAppMDIAware(pkt);
    } else {
      linker->registerAppNotMDIAware(pkt);
    }
    if (linkerFlag != 0) linker->unlockApplication(pkt);
  }
  mainWindow = adsw_acadMainWnd();
  atBorder([this] {
    CString name;
    if (getServiceName(name) != 0) {
      acrxRegisterService(name.c_str());
      serviceName.swap(name);
    }
  });
  return initApp(pkt);
}

int ArxMfcApp::addAppCommand(const CString& globalName, const CString& localName,
                             AcRxFunctionPtr worker, Adesk::Int32 flags) {
  nameCommandGroup();
  const CString global = prefixCommands != 0 ? prefixed(globalName) : globalName;
  const CString local = prefixCommands != 0 ? prefixed(localName) : localName;
  auto* stack = hostService<AcEdCommandStack>(L"ACAD_REGISTERED_COMMANDS");
  const Acad::ErrorStatus status =
      stack != nullptr ? stack->addCommand(commandGroup.c_str(), global.c_str(), local.c_str(),
                                           flags, worker, nullptr, -1, nullptr, nullptr)
                       : Acad::eInvalidInput;
  if (status == Acad::eOk) return 1;
  const CString text = L"Error adding command\n" +
                       formatText(L"Acad::ErrorStatus = %d.", {static_cast<int>(status)});
  appMessageBox(text.c_str(), MB_ICONINFORMATION);
  return 0;
}

void ArxMfcApp::removeRegistrations() {
  if (!serviceName.empty()) {
    if (auto* services = hostService<AcRxDictionary>(L"ServiceDictionary")) {
      const std::unique_ptr<AcRxObject> removed(services->remove(serviceName.c_str()));
    }
  }
  if (!commandGroup.empty()) {
    if (auto* stack = hostService<AcEdCommandStack>(L"ACAD_REGISTERED_COMMANDS")) {
      stack->removeGroup(commandGroup.c_str());
    }
  }
  deleteFunctions();
}

void ArxMfcApp::nameCommandGroup() { commandGroup = prefixed(moduleBaseName(moduleInstance)); }

CString ArxMfcApp::prefixed(const CString& name) const { return prefix + L"_" + name; }

void showInstalledBox(ArxMfcApp& app) {
  const CString text = L"The program \"" + app.prefix + L"\" is installed.";
  appMessageBox(text.c_str(), MB_ICONINFORMATION);
}

void installCommandWorker() { guardedCommand<ArxMfcApp, showInstalledBox>(); }

int ArxMfcApp::addLispFunction(const CString& name, int (*function)()) {
  nameCommandGroup();
  constexpr size_t markerLength = 2;
  const bool isCommand = _wcsnicmp(name.c_str(), L"C:", markerLength) == 0;
  const CString marker = isCommand ? name.substr(0, markerLength) : CString();
  const CString rest = name.substr(marker.size());
  const bool withPrefix = (isCommand ? prefixCommands : prefixFunctions) != 0;
  const CString finalName = withPrefix ? marker + prefixed(rest) : rest;

  const int index = static_cast<int>(functions.size());
  for (int other = 0; other < index; ++other) {
    if (equalIgnoringCase(functions.lookup(other)->value->name, finalName)) {
      appMessageBox(formatText(L"Duplicate function \"%s\".", {finalName}).c_str(),
                    MB_ICONINFORMATION);
      return 0;
    }
  }
  auto holder = std::make_unique<AdsFunctionHolder>(AdsFunctionHolder{finalName, function});
  functions.setAt(index, holder.get());
  static_cast<void>(holder.release());
  return 1;
}

int ArxMfcApp::addCommandFunction(const CString& globalName, const CString& localName,
                                  int (*function)()) {
  if (addLispFunction(L"C:" + globalName, function) == 0) return 0;
  if (localName.empty() || equalIgnoringCase(localName, globalName)) return 1;
  return addLispFunction(L"C:" + localName, function);
}

int ArxMfcApp::defineLispFunctions() {
  for (int index = 0; const auto* element = functions.lookup(index); ++index) {
    const AdsFunctionHolder& holder = *element->value;
    if (acedDefun(holder.name.c_str(), static_cast<short>(index)) != RTNORM) {
      appMessageBox(formatText(L"Error defining function \"%s\".", {holder.name}).c_str(),
                    MB_ICONINFORMATION);
      return 0;
    }
    if (acedRegFunc(holder.function, index) != RTNORM) {
      appMessageBox(
          formatText(L"Error registering function \"%s\" (index=%d)", {holder.name, index}).c_str(),
          MB_ICONINFORMATION);
      return 0;
    }
  }
  return 1;
}

void ArxMfcApp::deleteFunctions() {
  for (int index = 0; const auto* element = functions.lookup(index); ++index) delete element->value;
  functions.clear();
}

}  // namespace tessaro
