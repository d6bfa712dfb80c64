#pragma once

#include <windows.h>

#include <aced.h>

#include <string>
#include <utility>

#include "core/Accounts.h"
#include "core/Program.h"
#include "core/StandInTime.h"
#include "gate/HostCall.h"

namespace wb {

/// Reports, in a catch block, that `what` (a command, an event) was ended by an exception.
void reportUncaught(const std::wstring& what);

/// Runs code of an application on its behalf. The editor survives whatever leaves it: a COM
/// error, a standard exception or any value thrown. It is reported.
template <class Call>
void runGuarded(const std::wstring& what, Call&& call) {
  try {
    call();
  } catch (...) {
    reportUncaught(what);
  }
}

/// The reactors of an event source, each once. They are on the accounts until the application
/// removes them, and may stay there beyond a command.
template <class Reactor>
class ReactorList {
 public:
  explicit ReactorList(std::wstring label) : label(std::move(label)) {}

  void add(Reactor* reactor) {
    if (reactor && !reactors.holds(reactor)) reactors.opened(reactor, label, true);
  }
  void remove(Reactor* reactor) { reactors.closed(reactor); }
  /// Forgets what an application left behind, before its code is unloaded.
  void forgetModule(HMODULE module) {
    reactors.forgetIf([&](const Reactor* one) { return isOfModule(module, one); });
  }

  /// Sends an event to the reactors that are still there by then: `name` is for reports, the
  /// arguments are the method's.
  template <class Method, class... Arguments>
  void send(const wchar_t* name, Method method, Arguments... arguments) const {
    for (Reactor* reactor : reactors.handles()) {
      if (!reactors.holds(reactor)) continue;
      const InModule outside;
      runGuarded(name, [&] { (reactor->*method)(arguments...); });
    }
  }

 private:
  std::wstring label;
  HandleLedger<Reactor*> reactors{L"reactor"};
};

/// The source of the editor's events.
class Editor : public AcEditor {
 public:
  void addReactor(AcRxEventReactor* reactor) override {
    HostCall(L"AcEditor.addReactor").run([&] { reactors.add(reactor); });
  }
  void removeReactor(AcRxEventReactor* reactor) override {
    HostCall(L"AcEditor.removeReactor").run([&] { reactors.remove(reactor); });
  }
  void forgetModule(HMODULE module) { reactors.forgetModule(module); }

  void beginSave(AcDbDatabase* database, const wchar_t* name) {
    reactors.send(L"beginSave", &AcRxEventReactor::beginSave, database, name);
  }
  void saveComplete(AcDbDatabase* database, const wchar_t* name) {
    reactors.send(L"saveComplete", &AcRxEventReactor::saveComplete, database, name);
  }

 private:
  ReactorList<AcRxEventReactor> reactors{L"AcEditorReactor"};
};

}  // namespace wb
