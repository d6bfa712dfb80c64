#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wb {

inline constexpr std::string_view byItself = "*";

/// Something that a user, the host or its clock does with the module, as lines of a script.
struct Scenario {
  std::string name;
  std::string setUp;
  std::string action;
  /// The calls, by their operations, whose failure leaves an xref unloaded; `byItself` if it is the
  /// user's intent.
  std::vector<std::string_view> leavesUnloaded = {};
  /// What the vault or the disk holds of a drawing changes with the drawing's own content.
  bool savesChanges = false;
};

/// The lines that make the vault "Plant" with its drawings; run once, and restored before each run.
extern const char vaultSetUp[];

/// The drawing that the scenarios work on, and two of its xrefs.
extern const char sheet[];
extern const char* const xrefsOfSheet[2];

/// The sheet is opened as a user would who has to get on with his work.
extern const char sheetOpensWhole[];

const std::vector<Scenario>& scenarios();

}  // namespace wb
