#include "editor/SelectionPrompt.h"

#include <adscodes.h>

#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/CommandLine.h"
#include "editor/CommandRunner.h"
#include "editor/Host.h"
#include "gate/HostError.h"

namespace wb {

int SelectionPrompt::askMany(Selection::Ids& ids) {
  if (const auto answer = Selection::instance().takeAnswer()) return useAnswer(*answer, ids);
  for (;;) {
    std::wstring token;
    if (ask(token) == InputQueue::Read::Cancel) return RTCAN;
    if (token.empty()) return ids.empty() ? RTERROR : RTNORM;
    addTyped(token, ids);
  }
}

int SelectionPrompt::askOne(Selection::Ids& ids) {
  if (const auto answer = Selection::instance().takeAnswer()) return useAnswer(*answer, ids);
  std::wstring token;
  if (ask(token) == InputQueue::Read::Cancel) return RTCAN;
  if (!token.empty()) addTyped(token, ids);
  return ids.empty() ? RTERROR : RTNORM;
}

int SelectionPrompt::useAnswer(const std::vector<std::wstring>& names, Selection::Ids& ids) {
  commandLineSays(prompt);
  if (names.size() == 1 && names[0] == L"none") {
    commandLineSays(L"*Cancel*");
    return RTCAN;
  }
  try {
    for (const std::wstring& name : names) Selection::addNamed(name, ids);
  } catch (const HostError& error) {
    // A person who tries anything may miss.
    if (Answers::instance().answersAny()) {
      commandLineSays(L"0 found");
    } else {
      tell({Event::error, Event::noSelection, {}, L"the selection can't be made: " + error.reason});
    }
    return RTERROR;
  }
  commandLineSays(std::to_wstring(ids.size()) + L" found");
  return ids.empty() ? RTERROR : RTNORM;
}

InputQueue::Read SelectionPrompt::ask(std::wstring& token) {
  commandLineSays(prompt);
  return Host::instance().runner().ask(token);
}

void SelectionPrompt::addTyped(const std::wstring& token, Selection::Ids& ids) {
  try {
    Selection::addNamed(token, ids);
    commandLineSays(std::to_wstring(ids.size()) + L" found");
  } catch (const HostError& error) {
    commandLineSays(error.reason);
  }
}

}  // namespace wb
