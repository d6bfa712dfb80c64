#include "editor/FileSelection.h"

#include <acutmem.h>

#include <algorithm>

#include "core/Names.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/Guarded.h"
#include "editor/Host.h"

namespace wb {

FileSelection& FileSelection::instance() { return sessionPart<FileSelection>(); }

bool FileSelection::addCallback(const ACHAR* name, SELECTFILEPROC proc, bool asPrimary) {
  const bool there = std::any_of(registered.begin(), registered.end(), [&](const Callback& one) {
    return sameName(one.name, name) && one.proc == proc;
  });
  if (there) return false;
  const Ticket ticket = handOut(L"select-file callback", name);
  keepBeyondCommand(ticket);
  registered.insert(asPrimary ? registered.begin() : registered.end(), {name, proc, ticket});
  return true;
}

bool FileSelection::removeCallback(const ACHAR* name, SELECTFILEPROC proc) {
  const auto found = std::find_if(registered.begin(), registered.end(), [&](const Callback& one) {
    return sameName(one.name, name) && one.proc == proc;
  });
  if (found == registered.end()) return false;
  giveBack(found->ticket);
  registered.erase(found);
  return true;
}

std::vector<SELECTFILEPROC> FileSelection::callbacks() const {
  std::vector<SELECTFILEPROC> procs;
  for (const Callback& one : registered) procs.push_back(one.proc);
  return procs;
}

Acad::ErrorStatus FileSelection::pick(short* userCancel, ACHAR*& chosenPath, int flags) {
  chosenPath = nullptr;
  std::optional<std::wstring> picked;
  if (picks.empty() && ask) {
    picked = ask(flags);
  } else if (picks.empty()) {
    if (!Answers::instance().answersAny()) tell(Event::error, L"the file dialog has no answer");
  } else {
    picked = std::move(picks.front());
    picks.pop_front();
  }
  wchar_t what[40];
  wsprintfW(what, L"select file flags=0x%X: ", static_cast<unsigned>(flags));
  tell(Event::dialog, what + picked.value_or(L"cancelled"));
  if (userCancel) *userCancel = picked ? 0 : 1;
  return picked ? acutNewString(picked->c_str(), chosenPath) : Acad::eOk;
}

std::optional<std::wstring> FileSelection::choose(int flags, const wchar_t* prompt,
                                                  bool& readOnly) {
  short cancel = 0;
  int choice = 0;
  ACHAR* path = nullptr;
  Acad::ErrorStatus status = Acad::eNotHandled;
  runGuarded(L"selectFile", [&] {
    status = acdbHostApplicationServices()->selectFile(&cancel, path, Host::instance().mainWindow(),
                                                       flags, prompt, nullptr, nullptr, L"dxf",
                                                       &choice, &readOnly, nullptr, nullptr);
  });
  std::optional<std::wstring> chosen;
  if (status == Acad::eOk && cancel == 0 && path) chosen = path;
  acutDelString(path);
  return chosen;
}

void FileSelection::dropOf(HMODULE module) {
  registered.erase(std::remove_if(registered.begin(), registered.end(),
                                  [&](const Callback& one) {
                                    return isInModule(module,
                                                      reinterpret_cast<const void*>(one.proc));
                                  }),
                   registered.end());
}

}  // namespace wb
