#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "foundation/SimpleDialog.h"
#include "vault/VaultInterfaces.h"

namespace tessaro {

/// Runs a verb of the vault's shell extension on one file, like a click in the file's right-click
/// menu. The dialog has no controls: it is the verb's owner window and runs a message loop.
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

/// Runs a verb (IContextMenu::InvokeCommand by name). A failure is ignored, since the shell
/// extension reports its own.
/// @param window the verb's owner window
void runVerb(HWND window, const IShellFolderPtr& shellFolder, const _bstr_t& fileName,
             const CString& verb);

/// Runs the vault's own check-in dialog (the verb "Unlock").
/// @param folder the file's folder, of either generation
/// @param fileName the file's bare name in that folder
/// @throws _com_error
void runCheckInDialog(const AppContext& app, IUnknown* folder, const _bstr_t& fileName);

}  // namespace tessaro
