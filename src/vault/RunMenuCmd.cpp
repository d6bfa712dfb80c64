#include "vault/RunMenuCmd.h"

#include <shellapi.h>
#include <shlobj.h>

#include "vault/CheckedCall.h"
#include "vault/ItemIdList.h"

namespace tessaro {

namespace {

_COM_SMARTPTR_TYPEDEF(IContextMenu, __uuidof(IContextMenu));

constexpr WORD runCommand = 1000;

void invoke(HWND window, const IShellFolderPtr& folder, const _bstr_t& fileName,
            const CString& verb) {
  const ItemIdList item = parseName(folder, fileName);
  LPCITEMIDLIST child = item.get();
  IContextMenuPtr menu;
  check(folder->GetUIObjectOf(nullptr, 1, &child, __uuidof(IContextMenu), nullptr,
                              reinterpret_cast<void**>(&menu)),
        *folder);
  // A shell extension's verbs have 8-bit names.
  const _bstr_t narrowVerb(verb.c_str());
  CMINVOKECOMMANDINFO command = {};
  command.cbSize = sizeof(command);
  command.hwnd = window;
  command.lpVerb = narrowVerb;
  check(menu->InvokeCommand(&command), *menu);
}

}  // namespace

RunMenuCmd::RunMenuCmd(IShellFolder* shellFolder, const _bstr_t& fileName, const CString& verb)
    : shellFolder(shellFolder), fileName(fileName), verb(verb) {}

void RunMenuCmd::onInit() {
  // Runs the verb when this window, which owns the verb's windows, is shown.
  PostMessageW(window, WM_COMMAND, runCommand, 0);
}

bool RunMenuCmd::onCommand(WORD id, WORD) {
  if (id != runCommand) return false;
  runVerb(window, shellFolder, fileName, verb);
  end(1);
  return true;
}

void runVerb(HWND window, const IShellFolderPtr& shellFolder, const _bstr_t& fileName,
             const CString& verb) {
  try {
    invoke(window, shellFolder, fileName, verb);
  } catch (const _com_error&) {
    // Failed or cancelled; the verb has reported it.
  }
}

void runCheckInDialog(const AppContext& app, IUnknown* folder, const _bstr_t& fileName) {
  RunMenuCmd(shellFolderOf(folder), fileName, L"Unlock").doModal(app.mainWindow);
}

}  // namespace tessaro
