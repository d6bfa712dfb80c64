#include "sweep/Scenario.h"

namespace wb {

#define PLANT "%WORK%\\Plant\\"
#define PLAN PLANT "Site\\Plan.dxf"
#define GRID PLANT "Xrefs\\Grid.dxf"
#define BUILDING PLANT "Xrefs\\Building.dxf"
#define OPEN_PLAN "@load\n@open " PLAN "\n"
#define HOLD_PLAN "@vault checkout " PLAN "\n"
#define QUIET "@reg set EditWarning 0\n"
#define MAKE_GRID_STALE "@vault newversion " GRID " from %DRAWINGS%\\Standards\\North.dxf\n"

const char yardSetUp[] =
    "@vault create Plant %WORK%\\Plant\n"
    "@vault add " GRID
    " from %DRAWINGS%\\Xrefs\\Grid.dxf\n"
    "@vault add " BUILDING
    " from %DRAWINGS%\\Xrefs\\Building.dxf\n"
    "@vault add " PLANT
    "Xrefs\\O'Neil drain.dxf from %DRAWINGS%\\Xrefs\\O'Neil drain.dxf\n"
    "@vault add " PLANT
    "Xrefs\\Detail\\Furniture.dxf from %DRAWINGS%\\Xrefs\\Detail\\Furniture.dxf\n"
    "@vault add " PLANT
    "Standards\\North.dxf from %DRAWINGS%\\Standards\\North.dxf\n"
    "@vault add " PLAN
    " from %DRAWINGS%\\Site\\Plan.dxf\n"
    "@vault add " PLANT
    "Notes.dxf from %DRAWINGS%\\Site\\Notes.dxf\n"
    "@vault card " PLAN
    " Title Layout1 Pump house\n"
    "@vault card " PLAN
    " Title Model Pump house\n"
    "@vault card " PLAN
    " Revision Layout2 5 type integer\n"
    "@vault map " PLAN
    " Title A1_TITLE TITLE\n"
    "@vault map " PLAN " Revision A1_TITLE REV\n";

const std::vector<Scenario>& scenarios() {
  static const std::vector<Scenario> all = {
      // The module's own coming and going, and the documents' events.
      {"loading", "", "@load\n"},
      {"loading with a drawing open", "@open " PLAN "\n", "@load\n"},
      {"unloading", OPEN_PLAN, "@unload\n"},
      {"opening", "@load\n" QUIET, "@open " PLAN "\n"},
      {"opening what is held", HOLD_PLAN "@load\n", "@open " PLAN "\n"},
      {"opening what another holds", "@vault checkout " PLAN " user eva computer HALL2\n@load\n",
       "@open " PLAN "\n"},
      {"opening read-only", "@load\n" QUIET, "@open " PLAN " readonly\n"},
      {"opening outside the vault", "@load\n", "@open %DRAWINGS%\\Site\\Notes.dxf\n"},
      {"opening offline", "@vault offline on Plant\n@load\n", "@open " PLAN "\n"},
      {"a new drawing", "@load\n", "@new\n@edit\nTessaro_properties\n"},
      {"the offer, accepted", "@load\n@reg set Autolock 1\n",
       "@answer yes\n@opendialog " PLAN "\n"},
      {"the offer, refused", "@load\n@reg set Autolock 1\n" QUIET,
       "@answer no\n@opendialog " PLAN "\n"},
      {"activating", OPEN_PLAN QUIET "@open " PLANT "Notes.dxf\n",
       "@activate " PLAN "\n@activate " PLANT "Notes.dxf\n"},
      {"saving", HOLD_PLAN OPEN_PLAN "@edit\n", "@save\n", false, true},
      {"closing", HOLD_PLAN OPEN_PLAN, "@close\n"},
      // The first change.
      {"a change, check-out accepted", OPEN_PLAN, "@answer yes\n@edit\n"},
      {"a change, check-out refused", OPEN_PLAN, "@answer no\n@edit\n"},
      {"a change of what another holds",
       "@vault checkout " PLAN " user eva computer HALL2\n" OPEN_PLAN, "@answer ok\n@edit\n"},
      {"asklock", OPEN_PLAN, "@answer yes\nTessaro_asklock\n"},
      {"telllockedelsewhere", OPEN_PLAN, "@answer ok\nTessaro_telllockedelsewhere\n"},
      // The drawing itself.
      {"lock", OPEN_PLAN, "@answer yes\nTessaro_lock\n"},
      {"lock of a changed drawing", OPEN_PLAN QUIET "@edit\n", "@answer yes\nTessaro_lock\n"},
      {"lock of what is stale",
       "@vault newversion " PLAN " from %DRAWINGS%\\Site\\Notes.dxf\n" OPEN_PLAN,
       "@answer yes\nTessaro_lock\n"},
      {"lock, offline", "@vault offline on Plant\n" OPEN_PLAN, "Tessaro_lock\n"},
      {"lock without a client", OPEN_PLAN "@client missing\n", "@answer ok\nTessaro_lock\n"},
      {"locksilent", OPEN_PLAN, "Tessaro_locksilent\n"},
      {"unlock", HOLD_PLAN OPEN_PLAN, "@answer yes\n@answer ok\nTessaro_unlock\n"},
      {"unlock of a changed drawing", HOLD_PLAN OPEN_PLAN "@edit\n",
       "@answer yes\n@answer ok\nTessaro_unlock\n", false, true},
      {"unlock, dialog cancelled", HOLD_PLAN OPEN_PLAN,
       "@answer yes\n@answer cancel\nTessaro_unlock\n"},
      {"unlock of what another holds",
       "@vault checkout " PLAN " user eva computer HALL2\n" OPEN_PLAN,
       "@answer yes\n@answer ok\nTessaro_unlock\n"},
      // Xrefs.
      {"getlatestxrefs, all current", OPEN_PLAN QUIET, "Tessaro_getlatestxrefs\n"},
      {"getlatestxrefs", OPEN_PLAN QUIET MAKE_GRID_STALE, "Tessaro_getlatestxrefs\n", true},
      {"getlatestxrefs with a file missing",
       "@vault fetch " BUILDING "\n" OPEN_PLAN QUIET MAKE_GRID_STALE "@vault deny " BUILDING "\n",
       "Tessaro_getlatestxrefs\n", true},
      {"lockxref", OPEN_PLAN QUIET, "@pick Grid Building\nTessaro_lockxref\n"},
      {"lockxref with a line among the xrefs", OPEN_PLAN QUIET,
       "@pick Grid #1\nTessaro_lockxref\n"},
      {"unlockxref", "@vault checkout " BUILDING "\n" OPEN_PLAN QUIET,
       "@pick Building\n@answer ok\nTessaro_unlockxref\n"},
      {"getxrefversion", MAKE_GRID_STALE OPEN_PLAN QUIET,
       "@select Building\n@row 1\n@answer ok\nTessaro_getxrefversion\n", true},
      {"getxrefver2", MAKE_GRID_STALE OPEN_PLAN QUIET, "@pick Grid\n_Tessaro_getxrefver2 1 \n",
       true},
      {"editxref", OPEN_PLAN QUIET, "@select Building\nTessaro_editxref\n", true},
      {"editxref and back", OPEN_PLAN QUIET,
       "@select Building\nTessaro_editxref\n@close\n@activate " PLAN "\n", true},
      {"editxref of what another holds",
       "@vault checkout " BUILDING " user eva computer HALL2\n" OPEN_PLAN QUIET,
       "@select Building\nTessaro_editxref\n"},
      {"properties of an xref", OPEN_PLAN QUIET,
       "@pick Building\n@answer ok\nTessaro_properties\n"},
      {"properties of the drawing", OPEN_PLAN QUIET, "@answer ok\nTessaro_properties\n"},
      // Menus.
      {"the menu of an xref", OPEN_PLAN QUIET, "@pick Grid\n@menu\n"},
      {"the menu of two xrefs", "@vault checkout " GRID "\n" OPEN_PLAN QUIET,
       "@pick Grid Building\n@menu\n"},
      {"check-out by the menu", OPEN_PLAN QUIET,
       "@pick Building\n@menu\n@choose Check out this Xref\n"},
      {"check-in by the menu", "@vault checkout " BUILDING "\n" OPEN_PLAN QUIET,
       "@pick Building\n@menu\n@answer ok\n@choose Check in this Xref\n"},
      {"a version by the menu", MAKE_GRID_STALE OPEN_PLAN QUIET,
       "@pick Grid\n@menu\n@choose Get Version > 1. <Created>\n", true},
      {"editing by the menu", OPEN_PLAN QUIET, "@pick Drain\n@menu\n@choose Edit this Xref\n",
       true},
      // The status window.
      {"a tick", OPEN_PLAN QUIET, "@tick\n"},
      {"a tick with a stale xref", OPEN_PLAN QUIET MAKE_GRID_STALE, "@tick\n"},
      {"a click on the refresh button", OPEN_PLAN QUIET, "@click 1021\n"},
      {"a click on the xref box", OPEN_PLAN QUIET MAKE_GRID_STALE, "@click 1005\n", true},
      {"a click on the lock box", OPEN_PLAN QUIET, "@answer yes\n@click 1006\n"},
      {"closing the window", OPEN_PLAN, "@window close\n"},
      // The title block, the settings, the load record.
      {"update", HOLD_PLAN OPEN_PLAN, "Tessaro_update\n"},
      {"update of a read-only drawing", "@load\n@open " PLAN " readonly\n" QUIET,
       "Tessaro_update\n"},
      {"update outside the vault", "@load\n@open %DRAWINGS%\\Site\\Notes.dxf\n",
       "@answer ok\nTessaro_update\n"},
      {"updatecurrent", HOLD_PLAN OPEN_PLAN "@layout Layout2\n", "Tessaro_updatecurrent\n"},
      {"update and save", HOLD_PLAN OPEN_PLAN, "Tessaro_update\n@save\n", false, true},
      {"update and unlock", HOLD_PLAN OPEN_PLAN,
       "Tessaro_update\n@answer yes\n@answer ok\nTessaro_unlock\n", false, true},
      {"settings", OPEN_PLAN, "@fill 1002 7\n@answer ok\nTessaro_settings\n"},
      {"settings turn the window on", "@reg set StatusWnd 0\n" OPEN_PLAN,
       "@check 1001 on\n@answer ok\nTessaro_settings\n"},
      {"install", "@load\n@open " PLANT "Notes.dxf\n", "Tessaro_install\n"},
      {"uninstall", "@load\n@open " PLANT "Notes.dxf\nTessaro_install\n", "Tessaro_uninstall\n"},
  };
  return all;
}

}  // namespace wb
