// An application on the module's frame that offers LISP functions: what the frame does for one that
// has some.

#include <aced.h>
#include <adscodes.h>

#include "frame/CommandGuard.h"

using tessaro::ArxMfcApp;
using tessaro::CString;
using tessaro::guardedCommand;

namespace {

int say(const wchar_t* text) {
  acedPrompt(text);
  return RTNORM;
}

int distance() { return say(L"distance called"); }
int measure() { return say(L"measure called"); }
int behind() { return say(L"behind called"); }

class LispApp : public ArxMfcApp {
 public:
  // Commands and command functions get the prefix, plain functions keep their names.
  LispApp() : ArxMfcApp(L"Brand", 1, 0, 1) {}

  AcRx::AppRetCode initApp(void*) override;
  int getServiceName(CString& name) override {
    name = L"Measuring";
    return 1;
  }
  AcRx::AppRetCode loadDwg(void*) override {
    say(L"loadDwg");
    return AcRx::kRetOK;
  }
};

LispApp application;

/// Adds a function that the host refuses, and one behind it.
void addRefused(const wchar_t* name, int (*function)()) {
  application.addLispFunction(name, function);
  application.addLispFunction(L"behind", behind);
}

void addNameless(LispApp&) { addRefused(L"", distance); }
void addEmpty(LispApp&) { addRefused(L"empty", nullptr); }

AcRx::AppRetCode LispApp::initApp(void*) {
  addLispFunction(L"distance", distance);
  addLispFunction(L"DISTANCE", measure);
  addCommandFunction(L"measure", L"Messen", measure);
  addCommandFunction(L"Area", L"AREA", distance);
  addAppCommand(L"nameless", L"nameless", guardedCommand<LispApp, addNameless>, 0);
  addAppCommand(L"empty", L"empty", guardedCommand<LispApp, addEmpty>, 0);
  return AcRx::kRetOK;
}

}  // namespace

extern "C" __declspec(dllexport) int acrxGetApiVersion() { return 17 << 16; }

extern "C" __declspec(dllexport) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message,
                                                                 void* packet) {
  return application.dispatch(message, packet);
}

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) application.moduleInstance = instance;
  return TRUE;
}
