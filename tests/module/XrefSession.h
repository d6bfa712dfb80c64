#pragma once

#include "shared/ModuleSession.h"

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

  /// Lines of a script: what the user holds of Grid is given up while no drawing has it.
  static std::vector<std::string> undoOfGrid();

  const std::filesystem::path view = workFolder() / L"View";
};

/// The same with the module loaded and the sheet open.
class OpenSheet : public XrefSession {
 protected:
  OpenSheet() { openSheet(); }
};
