#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "sweep/Scenario.h"
#include "sweep/Yard.h"

namespace wb {

/// A call that a scenario makes of the client or the host: the `after`-th repetition of an
/// operation.
struct SweptCall {
  std::wstring operation;
  unsigned after = 0;

  /// Of the host, as opposed to the client.
  bool ofHost() const;
};

/// What came of one run.
struct Verdict {
  std::vector<SweptCall> calls;        ///< that the action made, in their order
  std::vector<std::wstring> problems;  ///< empty if all is well
  std::vector<std::wstring> transcript;
};

/// Runs a scenario in a yard that was put back, and looks at what it left behind.
/// @param fault the call that fails; null for none, and then the script has to succeed
/// @param code the client's answer to it; a call of the host fails in the host's own way
Verdict runScenario(const Yard& yard, const Scenario& scenario, const SweptCall* fault,
                    HRESULT code);

/// The lines that show the same in the workbench: `cadhost --script`.
std::string scriptOf(const Scenario& scenario, const SweptCall& fault, HRESULT code);

}  // namespace wb
