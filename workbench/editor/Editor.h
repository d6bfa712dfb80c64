#pragma once

#include <aced.h>

#include <string>

#include "editor/ReactorList.h"
#include "gate/HostCall.h"

namespace wb {

/// The source of the editor's events.
class Editor : public AcEditor {
 public:
  void addReactor(AcRxEventReactor* reactor) override {
    HostCall(L"AcEditor.addReactor").run([&] { reactors.add(reactor); });
  }
  void removeReactor(AcRxEventReactor* reactor) override {
    HostCall(L"AcEditor.removeReactor").run([&] { reactors.remove(reactor); });
  }

  void beginSave(AcDbDatabase* database, const std::wstring& name) {
    reactors.each(L"beginSave", [&](auto& reactor) { reactor.beginSave(database, name.c_str()); });
  }
  void saveComplete(AcDbDatabase* database, const wchar_t* name) {
    reactors.each(L"saveComplete", [&](auto& reactor) { reactor.saveComplete(database, name); });
  }
  void dropOf(HMODULE module) { reactors.dropOf(module); }

 private:
  ReactorList<AcRxEventReactor> reactors{L"AcEditorReactor"};
};

}  // namespace wb
