#pragma once

#include <windows.h>

#include <aced.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/Accounts.h"
#include "core/Program.h"
#include "core/StandInTime.h"
#include "gate/HostCall.h"

namespace wb {

/// Erases what the predicate is true for.
template <class Container, class Predicate>
void eraseIf(Container& container, Predicate is) {
  container.erase(std::remove_if(container.begin(), container.end(), is), container.end());
}

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

/// What applications register of one kind, in order, each once. It is on the accounts until the
/// application removes it, and may stay there beyond a command.
template <class Entry>
class Registered {
 public:
  explicit Registered(const wchar_t* kind) : kind(kind) {}

  /// @param first before the others
  /// @return false if it is there already
  bool add(const Entry& entry, std::wstring label, bool first = false) {
    if (find(entry) != entries.end()) return false;
    const Ticket ticket = trackResource(kind, std::move(label));
    keepBeyondCommand(ticket);
    entries.insert(first ? entries.begin() : entries.end(), {entry, ticket});
    return true;
  }

  /// @return false if it isn't there
  bool remove(const Entry& entry) {
    const auto found = find(entry);
    if (found == entries.end()) return false;
    releaseResource(found->second);
    entries.erase(found);
    return true;
  }

  /// Calls with each that is still there by then.
  template <class Call>
  void each(Call&& call) const {
    for (const auto& one : std::vector(entries)) {
      if (std::find(entries.begin(), entries.end(), one) != entries.end()) call(one.first);
    }
  }

  std::vector<Entry> all() const {
    std::vector<Entry> all;
    for (const auto& [entry, ticket] : entries) all.push_back(entry);
    return all;
  }

  /// Forgets what an application left behind, before its code is unloaded; the accounts keep it.
  template <class Predicate>
  void forgetIf(Predicate is) {
    eraseIf(entries, [&](const auto& one) { return is(one.first); });
  }

 private:
  auto find(const Entry& entry) {
    return std::find_if(entries.begin(), entries.end(),
                        [&](const auto& one) { return one.first == entry; });
  }

  const wchar_t* kind;
  std::vector<std::pair<Entry, Ticket>> entries;
};

/// The reactors of an event source.
template <class Reactor>
class ReactorList {
 public:
  explicit ReactorList(std::wstring label) : label(std::move(label)) {}

  void add(Reactor* reactor) {
    if (reactor) reactors.add(reactor, label);
  }
  void remove(Reactor* reactor) { reactors.remove(reactor); }
  void dropOf(HMODULE module) {
    reactors.forgetIf([&](const Reactor* one) { return isOfModule(module, one); });
  }

  /// Sends an event: `name` is for reports, the arguments are the method's.
  template <class Method, class... Arguments>
  void send(const wchar_t* name, Method method, Arguments... arguments) const {
    reactors.each([&](Reactor* reactor) {
      const InModule outside;
      runGuarded(name, [&] { (reactor->*method)(arguments...); });
    });
  }

 private:
  std::wstring label;
  Registered<Reactor*> reactors{L"reactor"};
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
  void dropOf(HMODULE module) { reactors.dropOf(module); }

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
