#pragma once

#include "ModuleSession.h"

/// A sheet in the vault, held by the user, with these blocks: Grid (three versions, the first one
/// here), Tree > (Alpha > Beta; Zeta), Loose (outside the vault) and the ordinary block Plain.
/// Beside it lies Twins.dxf, with Grid and the same file in another spelling as Twin.
class XrefSession : public ModuleSession {
 protected:
  XrefSession();

  /// Loads the module, opens the sheet and marks.
  void openSheet();
  /// Saves, closes and opens the sheet; every xref has to be loaded from it again.
  void reopenSheet();
  /// The commands' client calls in their order, each "Interface.operation".
  std::vector<std::string> clientCalls() const;

  /// Runs `script` once as it is, once for each of its client calls, which then fails with E_FAIL,
  /// and once more as it is. After each nothing may be left open or referenced, and the sheet
  /// still has its xrefs.
  /// @param reset lines that undo what the script does, as far as it came
  void failEachCall(const std::string& script, const std::vector<std::string>& reset);

  /// Lines for failEachCall: what the user holds of Grid is given up while no drawing has it.
  static std::vector<std::string> undoOfGrid();

  static std::string contentOf(const std::filesystem::path& file);
  const std::filesystem::path view = workFolder() / L"View";
};
