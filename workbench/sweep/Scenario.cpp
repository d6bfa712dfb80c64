#include "sweep/Scenario.h"

#include <utility>

namespace wb {

#define PLANT "%WORK%\\Plant\\"
#define PLAN PLANT "Site\\Plan.dxf"
#define GRID PLANT "Xrefs\\Grid.dxf"
#define BUILDING PLANT "Xrefs\\Building.dxf"
#define OPEN_PLAN "@load\n@open " PLAN "\n"
#define HOLD_PLAN "@vault checkout " PLAN "\n"
#define QUIET "@reg set EditWarning 0\n"
#define MAKE_GRID_STALE "@vault newversion " GRID " from %DRAWINGS%\\Standards\\North.dxf\n"

#define CHECKED_OUT_BY_EVA(file) "@vault checkout " file " user eva computer HALL2\n"

const char vaultSetUp[] = R"(@vault create Plant %WORK%\Plant
@vault add %WORK%\Plant\Xrefs\Grid.dxf from %DRAWINGS%\Xrefs\Grid.dxf
@vault add %WORK%\Plant\Xrefs\Building.dxf from %DRAWINGS%\Xrefs\Building.dxf
@vault add %WORK%\Plant\Xrefs\O'Neil drain.dxf from %DRAWINGS%\Xrefs\O'Neil drain.dxf
@vault add %WORK%\Plant\Xrefs\Detail\Furniture.dxf from %DRAWINGS%\Xrefs\Detail\Furniture.dxf
@vault add %WORK%\Plant\Standards\North.dxf from %DRAWINGS%\Standards\North.dxf
@vault add %WORK%\Plant\Site\Plan.dxf from %DRAWINGS%\Site\Plan.dxf
@vault add %WORK%\Plant\Notes.dxf from %DRAWINGS%\Site\Notes.dxf
@vault card %WORK%\Plant\Site\Plan.dxf Title Layout1 Pump house
@vault card %WORK%\Plant\Site\Plan.dxf Title Model Pump house
@vault card %WORK%\Plant\Site\Plan.dxf Revision Layout2 5 type integer
@vault map %WORK%\Plant\Site\Plan.dxf Title A1_TITLE TITLE
@vault map %WORK%\Plant\Site\Plan.dxf Revision A1_TITLE REV
)";

const char sheet[] = PLAN;
const char* const xrefsOfSheet[2] = {GRID, BUILDING};

const char sheetOpensWhole[] =
    "@answer-any 1\n@try @close " PLAN "\n@try @window close\n@mark\n@open " PLAN
    "\n@expect xref: loaded Grid\n@expect xref: loaded Building\n@expect xref: loaded Drain\n"
    "@expect xref: loaded North\n@close " PLAN "\n";

namespace {

// The calls behind the unloading: what fails there leaves the xref to the next run.
const std::vector<std::string_view> gettingLatest = {"VaultClient.fileFromPath",
                                                     "VaultFile.getLocalCopy"};
const std::vector<std::string_view> gettingVersion = {"IShellFolder.ParseDisplayName",
                                                      "QueryInterface.VaultFolderActions",
                                                      "VaultFolderActions.getVersion"};

const std::vector<std::string_view> intended = {byItself};
const std::vector<std::string_view> nothing;

/// What the user does, whatever state it finds the sheet in. Boxes are answered somehow.
const std::vector<Scenario> anywhere = {
    {"opening", "", "@close " PLAN "\n@open " PLAN "\n"},
    {"a change", "@reg set EditWarning 1\n", "@edit\n"},
    {"lock", "", "Tessaro_lock\n"},
    {"locksilent", "", "Tessaro_locksilent\n"},
    {"unlock", "", "Tessaro_unlock\n"},
    {"getlatestxrefs", "", "Tessaro_getlatestxrefs\n", gettingLatest},
    {"lockxref", "", "@pick Grid Building\nTessaro_lockxref\n"},
    {"unlockxref", "", "@pick Building\nTessaro_unlockxref\n"},
    {"getxrefversion", "", "@select Grid\nTessaro_getxrefversion\n", gettingVersion},
    {"editxref", "", "@select Building\nTessaro_editxref\n", intended},
    {"properties", "", "Tessaro_properties\n"},
    {"the menu of an xref", "", "@pick Building\n@menu\n"},
    {"update", "", "Tessaro_update\n"},
    {"a tick", "", "@tick\n"},
    {"a click on the refresh button", "", "@try @click IDC_REFRESH\n"},
    {"a click on the xref box", "", "@try @click IDC_XREFS_LATEST\n", gettingLatest},
    {"a click on the lock box", "", "@try @click IDC_CHECKED_OUT_HERE\n"},
    {"closing", "", "@close " PLAN "\n"},
};

/// The states of the sheet, of an xref and of the vault that an action can meet.
struct State {
  const char* name;
  const char* before;  ///< the sheet is opened
  const char* after;
};
constexpr State states[] = {
    {"held by another", CHECKED_OUT_BY_EVA(PLAN) CHECKED_OUT_BY_EVA(BUILDING), ""},
    {"without permission", "@vault deny " PLAN " on\n@vault deny " BUILDING " on\n", ""},
    {"released", "@vault state " PLAN " Released\n@vault state " BUILDING " Released\n", ""},
    {"offline", "", "@vault offline on Plant\n"},
    {"without a client", "", "@client missing\n"},
};

std::vector<Scenario> inEachState() {
  std::vector<Scenario> all;
  for (const Scenario& action : anywhere) {
    for (const State& state : states) {
      all.push_back({action.name + ", " + state.name,
                     MAKE_GRID_STALE + std::string(state.before) + OPEN_PLAN QUIET + action.setUp +
                         state.after,
                     "@answer-any 1\n" + action.action, action.leavesUnloaded});
    }
  }
  return all;
}

std::vector<Scenario> inTheStatesOfTheirOwn() {
  return {
      // The module's own coming and going, and the documents' events.
      {"loading", "", "@load\n"},
      {"loading with a drawing open", "@open " PLAN "\n", "@load\n"},
      {"unloading", OPEN_PLAN, "@unload\n"},
      {"opening", "@load\n" QUIET, "@open " PLAN "\n"},
      {"opening what is held", HOLD_PLAN "@load\n", "@open " PLAN "\n"},
      {"opening what another holds", CHECKED_OUT_BY_EVA(PLAN) "@load\n", "@open " PLAN "\n"},
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
      {"saving", HOLD_PLAN OPEN_PLAN "@edit\n", "@save\n", nothing, true},
      {"closing", HOLD_PLAN OPEN_PLAN, "@close\n"},
      // The first change.
      {"a change, check-out accepted", OPEN_PLAN, "@answer yes\n@edit\n"},
      {"a change, check-out refused", OPEN_PLAN, "@answer no\n@edit\n"},
      {"a change of what another holds", CHECKED_OUT_BY_EVA(PLAN) OPEN_PLAN, "@answer ok\n@edit\n"},
      {"asklock", OPEN_PLAN, "@answer yes\nTessaro_asklock\n"},
      {"telllockedelsewhere", OPEN_PLAN, "@answer ok\nTessaro_telllockedelsewhere\n"},
      // The drawing itself.
      {"lock", OPEN_PLAN, "@answer yes\nTessaro_lock\n"},
      {"lock of a changed drawing", OPEN_PLAN QUIET "@edit\n", "@answer yes\nTessaro_lock\n"},
      {"lock of what is stale",
       "@vault newversion " PLAN " from %DRAWINGS%\\Site\\Plan.dxf comment Again\n" OPEN_PLAN,
       "@answer yes\nTessaro_lock\n"},
      {"locksilent", OPEN_PLAN, "Tessaro_locksilent\n"},
      {"unlock", HOLD_PLAN OPEN_PLAN, "@answer yes\n@answer ok\nTessaro_unlock\n"},
      {"unlock of a changed drawing", HOLD_PLAN OPEN_PLAN "@edit\n",
       "@answer yes\n@answer ok\nTessaro_unlock\n", nothing, true},
      {"unlock, dialog cancelled", HOLD_PLAN OPEN_PLAN,
       "@answer yes\n@answer cancel\nTessaro_unlock\n"},
      // Xrefs.
      {"getlatestxrefs, all current", OPEN_PLAN QUIET, "Tessaro_getlatestxrefs\n"},
      {"getlatestxrefs", OPEN_PLAN QUIET MAKE_GRID_STALE, "Tessaro_getlatestxrefs\n",
       gettingLatest},
      {"getlatestxrefs with a file missing",
       "@vault fetch " BUILDING "\n" OPEN_PLAN QUIET MAKE_GRID_STALE "@vault deny " BUILDING "\n",
       "Tessaro_getlatestxrefs\n", gettingLatest},
      {"lockxref", OPEN_PLAN QUIET, "@pick Grid Building\nTessaro_lockxref\n"},
      {"lockxref with a line among the xrefs", OPEN_PLAN QUIET,
       "@pick Grid #1\nTessaro_lockxref\n"},
      {"unlockxref", "@vault checkout " BUILDING "\n" OPEN_PLAN QUIET,
       "@pick Building\n@answer ok\nTessaro_unlockxref\n"},
      {"getxrefversion", MAKE_GRID_STALE OPEN_PLAN QUIET,
       "@select Building\n@row 1\n@answer ok\nTessaro_getxrefversion\n", gettingVersion},
      {"getxrefver2", MAKE_GRID_STALE OPEN_PLAN QUIET, "@pick Grid\n_Tessaro_getxrefver2 1 \n",
       gettingVersion},
      {"editxref", OPEN_PLAN QUIET, "@select Building\nTessaro_editxref\n", intended},
      {"editxref and back", OPEN_PLAN QUIET, "@select Building\nTessaro_editxref\n@close\n"},
      {"properties of an xref", OPEN_PLAN QUIET,
       "@pick Building\n@answer ok\nTessaro_properties\n"},
      {"properties by the menu", OPEN_PLAN QUIET,
       "@pick Building\n@menu\n@answer ok\n@choose Tessaro Properties...\n"},
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
       "@pick Grid\n@menu\n@choose Get Version > 1. <Created>\n", gettingVersion},
      {"editing by the menu", OPEN_PLAN QUIET, "@pick Drain\n@menu\n@choose Edit this Xref\n",
       intended},
      // The status window.
      {"a tick", OPEN_PLAN QUIET, "@tick\n"},
      {"a tick with a stale xref", OPEN_PLAN QUIET MAKE_GRID_STALE, "@tick\n"},
      {"a click on the refresh button", OPEN_PLAN QUIET, "@click IDC_REFRESH\n"},
      {"a click on the xref box", OPEN_PLAN QUIET MAKE_GRID_STALE, "@click IDC_XREFS_LATEST\n",
       gettingLatest},
      {"a click on the lock box", OPEN_PLAN QUIET, "@answer yes\n@click IDC_CHECKED_OUT_HERE\n"},
      {"closing the window", OPEN_PLAN, "@window close\n"},
      {"a click on the xref box, all current", OPEN_PLAN QUIET, "@click IDC_XREFS_LATEST\n"},
      {"a tick after the last drawing", OPEN_PLAN QUIET "@close " PLAN "\n", "@tick\n"},
      // The title block, the settings, the load record.
      {"update", HOLD_PLAN OPEN_PLAN, "Tessaro_update\n"},
      {"update outside the vault", "@load\n@open %DRAWINGS%\\Site\\Notes.dxf\n",
       "@answer ok\nTessaro_update\n"},
      {"updatecurrent", HOLD_PLAN OPEN_PLAN "@layout Layout2\n", "Tessaro_updatecurrent\n"},
      {"update and save", HOLD_PLAN OPEN_PLAN, "Tessaro_update\n@save\n", nothing, true},
      {"update and unlock", HOLD_PLAN OPEN_PLAN,
       "Tessaro_update\n@answer yes\n@answer ok\nTessaro_unlock\n", nothing, true},
      {"settings", OPEN_PLAN, "@fill IDC_INTERVAL 7\n@answer ok\nTessaro_settings\n"},
      {"settings, cancelled", OPEN_PLAN, "@answer cancel\nTessaro_settings\n"},
      {"update of a read-only drawing", "@load\n@open " PLAN " readonly\n" QUIET,
       "Tessaro_update\n"},
      {"lock of a read-only drawing", "@load\n@open " PLAN " readonly\n" QUIET,
       "@answer yes\nTessaro_lock\n"},
      {"settings turn the window on", "@reg set StatusWnd 0\n" OPEN_PLAN,
       "@check IDC_SHOW_STATUS on\n@answer ok\nTessaro_settings\n"},
      {"install", "@load\n@open " PLANT "Notes.dxf\n", "Tessaro_install\n"},
      {"uninstall", "@load\n@open " PLANT "Notes.dxf\nTessaro_install\n", "Tessaro_uninstall\n"},
  };
}

}  // namespace

const std::vector<Scenario>& scenarios() {
  static const std::vector<Scenario> all = [] {
    std::vector<Scenario> made = inTheStatesOfTheirOwn();
    for (Scenario& scenario : inEachState()) made.push_back(std::move(scenario));
    return made;
  }();
  return all;
}

}  // namespace wb
