#pragma once

#include "foundation/CString.h"
#include "foundation/SimpleDialog.h"
#include "vault/VaultInterfaces.h"

namespace tessaro {

/// Runs a verb of the vault's shell extension on one file, as a click in the file's right-click
/// menu would. The dialog has no controls: it gives the verb an owner window and a message loop.
class RunMenuCmd : public CSimpleDialog<119, true> {
 public:
  /// @param shellFolder the folder of the file
  /// @param fileName the file's bare name in that folder
  /// @param verb the verb's canonical name, such as "Unlock"
  RunMenuCmd(IShellFolder* shellFolder, const _bstr_t& fileName, const CString& verb);

 protected:
  void onInit() override;
  bool onCommand(WORD id, WORD notification) override;

 private:
  IShellFolderPtr shellFolder;
  _bstr_t fileName;
  CString verb;
};

/// Runs the verb (IContextMenu::InvokeCommand by name). A failure ends it without a word: what the
/// verb has to say, its owner says.
/// @param window the window that the verb gets as its own
void runVerb(HWND window, const IShellFolderPtr& shellFolder, const _bstr_t& fileName,
             const CString& verb);

}  // namespace tessaro
