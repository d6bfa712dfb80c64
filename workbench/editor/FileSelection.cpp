#include "editor/FileSelection.h"

#include <acutmem.h>

#include "core/Lists.h"
#include "core/Program.h"
#include "core/SessionState.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/Host.h"

namespace wb {

static std::optional<std::wstring> choose(int flags, const wchar_t* prompt, bool& readOnly) {
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

FileSelection& FileSelection::instance() { return sessionPart<FileSelection>(); }

std::optional<std::wstring> FileSelection::chooseToOpen(bool& readOnly) {
  return choose(openFlags, L"Select File", readOnly);
}

std::optional<std::wstring> FileSelection::chooseToSave() {
  bool readOnly = false;
  return choose(saveFlags, L"Save Drawing As", readOnly);
}

void FileSelection::forgetModule(HMODULE module) {
  callbacks.forgetIf([&](const Callback& one) {
    return isInModule(module, reinterpret_cast<const void*>(one.proc));
  });
}

Acad::ErrorStatus FileSelection::pick(short* userCancel, ACHAR*& chosenPath, int flags) {
  chosenPath = nullptr;
  std::optional<std::wstring> picked;
  if (auto queued = popFirst(picks)) {
    picked = std::move(*queued);
  } else if (ask) {
    picked = ask(flags);
  } else if (!Answers::instance().answersAny()) {
    report(Event::error, L"the file dialog has no answer");
  }
  report(Event::dialog, L"select file flags=" + hexText(static_cast<unsigned long>(flags)) + L": " +
                            picked.value_or(L"cancelled"));
  if (userCancel) *userCancel = picked ? 0 : 1;
  return picked ? acutNewString(picked->c_str(), chosenPath) : Acad::eOk;
}

}  // namespace wb
