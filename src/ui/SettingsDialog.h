#pragma once

#include "foundation/AppContext.h"
#include "foundation/SimpleDialog.h"
#include "ui/resource.h"

namespace tessaro {

class FloatWindow;

/// Shows the user's four settings. The members are set from the controls when the dialog closes.
class SettingsDialog : public CSimpleDialog<IDD_SETTINGS, true> {
 public:
  bool autolock = false;     ///< offer the check-out at open
  bool editWarning = false;  ///< warn at the first change of a drawing that isn't checked out
  bool statusWnd = false;    ///< show the status window
  unsigned interval = 0;     ///< period of the xref monitor in minutes, 0 for none

 protected:
  void onInit() override;
  bool onCommand(WORD id, WORD notification) override;

 private:
  void setTexts();
  void takeValues();
};

/// The command `settings`: lets the user change the settings. OK writes them and applies them to
/// the status window.
/// @param statusWindow null if there is none
void settings(AppContext& app, FloatWindow* statusWindow);

}  // namespace tessaro
