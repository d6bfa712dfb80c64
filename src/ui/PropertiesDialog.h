#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "foundation/SimpleDialog.h"
#include "ui/resource.h"

namespace tessaro {

/// The vault facts of one file, as its properties dialog shows them.
struct FileProperties {
  CString fileName;        ///< the file's name in the vault
  CString location;        ///< the full local path
  CString checkedOutBy;    ///< the holder's user name, empty if nobody holds it
  CString checkedOutIn;    ///< the holder's computer and folder
  CString workflowState;   ///< name of the file's state
  long localVersion = -1;  ///< -1 without a local version
  long latestVersion = 0;
};

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

/// The command `properties`: shows the vault facts of the preselected xref, or else of the current
/// drawing. A file outside the vault gets no dialog.
void properties(AppContext& app);

}  // namespace tessaro
