#pragma once

#include "foundation/AppContext.h"
#include "foundation/SimpleDialog.h"
#include "ui/resource.h"

namespace tessaro {

class FloatWindow;

/// Shows the four settings of the user; they are taken out of the controls when it closes.
class SettingsDialog : public CSimpleDialog<IDD_SETTINGS, true> {
 public:
  bool autolock = false;    ///< offer the check-out at open
  bool editWarning = true;  ///< warn at the first change of a drawing that isn't held
  bool statusWnd = true;    ///< show the status window
  unsigned interval = 5;    ///< period of the xref monitor in minutes, 0 for none

 protected:
  void onInit() override;
  bool onCommand(WORD id, WORD notification) override;

 private:
  void setTexts();
  void takeValues();
};

/// The command `settings`: lets the user see and change the settings; OK writes them, and the
/// status window follows at once.
/// @param statusWindow null if there is none
void settings(AppContext& app, FloatWindow* statusWindow);

}  // namespace tessaro
