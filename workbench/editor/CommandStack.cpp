#include "editor/CommandStack.h"

#include <algorithm>

#include "core/Names.h"
#include "core/Transcript.h"

namespace wb {

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                           const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                           AcRxFunctionPtr functionAddr, AcEdUIContext*, int,
                                           HINSTANCE, AcEdCommand** cmdPtrRet) {
  if (cmdPtrRet) *cmdPtrRet = nullptr;
  if (!cmdGroupName || !cmdGlobalName || !cmdLocalName || !functionAddr) return Acad::eInvalidInput;
  Command command;
  command.group = cmdGroupName;
  command.global = cmdGlobalName;
  command.local = cmdLocalName;
  command.flags = commandFlags;
  command.work = functionAddr;
  command.address = reinterpret_cast<const void*>(functionAddr);
  return add(std::move(command));
}

Acad::ErrorStatus CommandStack::add(Command command) {
  if (command.group.empty() || command.global.empty() || command.local.empty()) {
    return Acad::eInvalidInput;
  }
  const bool inUse = std::any_of(commands.begin(), commands.end(), [&](const Command& one) {
    return sameName(one.global, command.global) || sameName(one.local, command.local);
  });
  if (inUse) {
    tell(Event::command, command.global + L" refused: the name is in use");
    return Acad::eDuplicateKey;
  }
  if (command.address) {
    command.ticket = handOut(L"command", command.global);
    keepBeyondCommand(command.ticket);
  }
  commands.push_back(std::move(command));
  return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeGroup(const ACHAR* groupName) {
  if (!groupName) return Acad::eInvalidInput;
  const auto kept =
      std::stable_partition(commands.begin(), commands.end(),
                            [&](const Command& one) { return !sameName(one.group, groupName); });
  if (kept == commands.end()) return Acad::eKeyNotFound;
  for (auto one = kept; one != commands.end(); ++one) {
    if (one->ticket) giveBack(one->ticket);
  }
  commands.erase(kept, commands.end());
  return Acad::eOk;
}

const Command* CommandStack::find(std::wstring_view typed) const {
  const bool global = !typed.empty() && typed.front() == L'_';
  if (global) typed.remove_prefix(1);
  const auto found = std::find_if(commands.begin(), commands.end(), [&](const Command& one) {
    return sameName(global ? one.global : one.local, typed);
  });
  return found == commands.end() ? nullptr : &*found;
}

void CommandStack::dropOf(HMODULE module) {
  commands.erase(
      std::remove_if(commands.begin(), commands.end(),
                     [&](const Command& one) { return isInModule(module, one.address); }),
      commands.end());
}

void CommandStack::clear() { commands.clear(); }

}  // namespace wb
