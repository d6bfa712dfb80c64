#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

#include "scripting/Session.h"
#include "sweep/Scenario.h"
#include "trials/VaultCheck.h"

namespace wb {

/// A call that a scenario makes of the client, the host or Windows: the `after`-th repetition of an
/// operation.
struct SweptCall {
  std::wstring operation;
  unsigned after = 0;

  /// Of the host, as opposed to the client.
  bool ofHost() const;
  /// Of Windows: an allocation of the module's own, a window or a menu.
  bool ofModule() const;
};

/// A fault at a call.
struct SweptFault {
  SweptCall call;
  std::string name;
  std::string lines;  ///< of the script that cause it
  /// How many programs have a drawing's file open or have moved it; the call itself succeeds then.
  unsigned onDisk = 0;
};

/// A client's call that returns a code; a call of the host fails in the host's own way.
SweptFault failing(const SweptCall& call, HRESULT code);
/// All that another program does to the sheet or to its xrefs from a call on.
std::vector<SweptFault> disturbing(const SweptCall& call);

/// The result of one run.
struct Verdict {
  std::vector<SweptCall> calls;        ///< that the action made, in their order
  std::vector<std::wstring> problems;  ///< empty if the run passed
  std::vector<std::wstring> transcript;
  bool escaped = false;        ///< an exception left what the host called, as it may
  bool faultOccurred = false;  ///< files may be in use as long as the action lasts

  /// Adds a problem unless `holds`.
  void require(bool holds, const std::wstring& otherwise) {
    if (!holds) problems.push_back(otherwise);
  }
};

/// The folder in which the sweep's runs take place: a vault "Plant" with its view, made once and
/// restored before each run.
class Snapshot {
 public:
  /// Makes the vault by a script.
  /// @param folder a work folder of the workbench, or empty; it is emptied. Its subfolder `work`
  /// becomes the sessions' work folder
  /// @throws std::runtime_error if the script fails
  Snapshot(const std::filesystem::path& folder, const std::filesystem::path& drawings,
           const char* setUp);

  /// Restores the work folder and the registry to what they were after the set-up.
  void restore() const;
  /// What a session of a run is made of; it finds the work folder as it is.
  SessionOptions options() const;
  std::filesystem::path store() const { return work / L"store"; }
  /// A check that knows what the vault held after the set-up.
  VaultCheck vaultCheck() const { return check; }

 private:
  std::filesystem::path work;
  std::filesystem::path kept;
  std::filesystem::path drawings;
  VaultCheck check{L"Plant", store()};
};

/// Restores the snapshot, runs a scenario in it, and checks what it left behind.
/// @param fault null for none, and then the script has to succeed
Verdict runScenario(const Snapshot& snapshot, const Scenario& scenario, const SweptFault* fault);

/// The lines that show the same in the workbench: `acad --script`.
std::string scriptOf(const Scenario& scenario, const SweptFault& fault);

}  // namespace wb
