#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "sweep/Scenario.h"
#include "sweep/Yard.h"

namespace wb {

/// A call that a scenario makes of the client, the host or Windows: the `after`-th repetition of an
/// operation.
struct SweptCall {
  std::wstring operation;
  unsigned after = 0;

  /// Of the host, as opposed to the client.
  bool ofHost() const;
  /// Of Windows: an allocation of the module's own, a window or a menu that it wants.
  bool ofModule() const;
};

/// What goes wrong at a call.
struct SweptFault {
  SweptCall call;
  std::string name;
  std::string lines;  ///< of the script that bring it about
  /// So many programs have their hands on a drawing's file, and the call itself is let through.
  unsigned onDisk = 0;
};

/// A client's call that answers with a code; a call of the host fails in the host's own way.
SweptFault failing(const SweptCall& call, HRESULT code);
/// All that another program does to the sheet or to its xrefs from a call on.
std::vector<SweptFault> disturbing(const SweptCall& call);

/// What came of one run.
struct Verdict {
  std::vector<SweptCall> calls;        ///< that the action made, in their order
  std::vector<std::wstring> problems;  ///< empty if all is well
  std::vector<std::wstring> transcript;
  bool escaped = false;    ///< an error left what the host called, as it may
  bool faultCame = false;  ///< files may be in use as long as the action lasts
};

/// Runs a scenario in a yard that was put back, and looks at what it left behind.
/// @param fault null for none, and then the script has to succeed
Verdict runScenario(const Yard& yard, const Scenario& scenario, const SweptFault* fault);

/// The lines that show the same in the workbench: `acad --script`.
std::string scriptOf(const Scenario& scenario, const SweptFault& fault);

}  // namespace wb
