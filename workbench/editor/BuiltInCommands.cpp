#include "editor/BuiltInCommands.h"

#include "editor/CommandLine.h"
#include "editor/CommandStack.h"
#include "editor/DocumentManager.h"
#include "editor/FileSelection.h"
#include "editor/Host.h"
#include "gate/HostError.h"

namespace wb {

namespace {

DocumentManager& documents() { return Host::instance().documents(); }

void close() {
  if (Document* document = documents().active()) documents().close(document, true);
}

void open() {
  bool readOnly = false;
  const auto path =
      FileSelection::instance().choose(FileSelection::openFlags, L"Select File", readOnly);
  try {
    if (path) documents().open(*path, readOnly);
  } catch (const HostError& error) {
    commandLineSays(*path + L" can't be opened: " + error.reason + L".");
  }
}

void newDrawing() {
  try {
    documents().create();
  } catch (const HostError& error) {
    commandLineSays(L"No new drawing: " + error.reason + L".");
  }
}

void saveAs() {
  Document* document = documents().context();
  bool readOnly = false;
  const auto path =
      FileSelection::instance().choose(FileSelection::saveFlags, L"Save Drawing As", readOnly);
  if (path) documents().saveForUserAs(document, *path);
}

void quickSave() { documents().saveForUser(documents().context()); }

void quit() {
  for (Document* document : documents().all()) {
    if (documents().isOpen(document) && !documents().close(document, true)) return;
  }
  Host::instance().requestQuit();
}

}  // namespace

void addBuiltInCommands(CommandStack& commands) {
  struct BuiltIn {
    const wchar_t* name;
    int flags;
    void (*work)();
  };
  static const BuiltIn builtIns[] = {
      {L"CLOSE", ACRX_CMD_SESSION, close}, {L"NEW", ACRX_CMD_SESSION, newDrawing},
      {L"OPEN", ACRX_CMD_SESSION, open},   {L"QSAVE", ACRX_CMD_MODAL, quickSave},
      {L"QUIT", ACRX_CMD_SESSION, quit},   {L"SAVEAS", ACRX_CMD_MODAL, saveAs},
  };
  for (const BuiltIn& builtIn : builtIns) {
    Command command;
    command.group = L"ACAD";
    command.global = command.local = builtIn.name;
    command.flags = builtIn.flags;
    command.work = builtIn.work;
    commands.add(std::move(command));
  }
}

}  // namespace wb
