#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "foundation/SimpleDialog.h"
#include "ui/resource.h"

namespace tessaro {

/// Shows the versions of one file, newest first, with their comments, for the user to choose one.
class GetVersionDialog : public CSimpleDialog<IDD_GET_VERSION, true> {
 public:
  /// @param path the file's full path
  GetVersionDialog(AppContext& app, const CString& path) : app(app), path(path) {}

  /// The chosen version, 0 if no row was selected.
  long selectedVersion = 0;

 protected:
  void onInit() override;
  bool onCommand(WORD id, WORD notification) override;
  bool onNotify(const NMHDR& notification) override;

 private:
  void setTexts();
  void addColumns();
  void addVersions();
  void takeSelection();

  AppContext& app;
  const CString path;
};

/// Runs the dialog.
/// @return the chosen version, 0 if the user cancelled or chose none
long chooseVersion(AppContext& app, const CString& path);

}  // namespace tessaro
