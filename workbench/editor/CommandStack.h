#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Accounts.h"
#include "notserved/Classes.h"

namespace wb {

struct Command {
  std::wstring group, global, local;
  int flags = 0;
  std::function<void()> work;
  const void* address = nullptr;  ///< the application's function, null for the editor's own
  Ticket ticket = 0;

  bool runsInApplicationContext() const { return (flags & ACRX_CMD_SESSION) != 0; }
};

/// The commands by name. A name, global or local, can be used once.
class CommandStack : public NotServedAcEdCommandStack {
 public:
  Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                               const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                               AcRxFunctionPtr functionAddr, AcEdUIContext* uiContext, int fcode,
                               HINSTANCE hResourceHandle, AcEdCommand** cmdPtrRet) override;
  Acad::ErrorStatus removeGroup(const ACHAR* groupName) override;

  Acad::ErrorStatus add(Command command);
  /// Finds by what was typed: "_NAME" is the global name, "NAME" the local one. Null if unknown.
  const Command* find(std::wstring_view typed) const;
  const std::vector<Command>& all() const { return commands; }
  /// Takes away what an application left behind, whose code is about to go.
  void dropOf(HMODULE module);
  void clear();

 private:
  std::vector<Command> commands;
};

}  // namespace wb
