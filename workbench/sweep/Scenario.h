#pragma once

#include <vector>

namespace wb {

/// Something that a user, the host or its clock does with the module, as lines of a script.
struct Scenario {
  const char* name;
  const char* setUp;
  const char* action;
  /// An xref may stay unloaded when a step fails in the middle.
  bool mayLeaveUnloaded = false;
  /// What the vault or the disk holds of a drawing changes with the drawing's own content.
  bool savesChanges = false;
};

/// The lines that make the vault "Plant" with its drawings; run once, and put back before each run.
extern const char yardSetUp[];

const std::vector<Scenario>& scenarios();

}  // namespace wb
