#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "foundation/SimpleDialog.h"
#include "ui/resource.h"

namespace tessaro {

/// The properties of one file in the vault.
struct FileProperties {
  CString fileName;        ///< the file's name in the vault
  CString location;        ///< the full local path
  CString checkedOutBy;    ///< user name, empty if the file isn't checked out
  CString checkedOutIn;    ///< computer and folder of the check-out
  CString workflowState;   ///< name of the file's state
  long localVersion = -1;  ///< -1 without a local version
  long latestVersion = 0;
};

/// Shows the properties of one file.
class PropertiesDialog : public CSimpleDialog<IDD_PROPERTIES, true> {
 public:
  explicit PropertiesDialog(const FileProperties& file) : file(file) {}

 protected:
  void onInit() override;
  bool onCommand(WORD id, WORD notification) override;

 private:
  void setValues();

  const FileProperties file;
};

/// The command `properties`: shows the properties of the preselected xref, or else of the current
/// drawing. For a file outside the vaults nothing is shown.
void properties(AppContext& app);

}  // namespace tessaro
