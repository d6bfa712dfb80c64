#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace wb {

/// What a user, or another one elsewhere, does in a session.
struct Step {
  std::string lines;  ///< of the script

  bool failing = false;         ///< a call fails, or another program has a file
  bool undoesCheckOut = false;  ///< which brings the vault's content to the disk
  bool refreshes = false;       ///< the status window shows the document anew
  std::optional<bool> clientPresent = {};
  std::optional<bool> offline = {};
};

/// The lines that set up the vault, its drawings and the module.
std::string preamble();

/// The steps of a session. The same seed gives the same steps, and fewer of them are the beginning
/// of more.
std::vector<Step> makeSteps(unsigned seed, unsigned count);

/// Where sessions work: `work` is a session's folder, `drawings` a copy of the sample drawings,
/// since a session may save over them.
inline std::filesystem::path sessionsFolder() {
  return std::filesystem::temp_directory_path() / L"random-sessions";
}

/// Runs one session in this process and judges each step.
/// @param patience how many seconds a step may take before the process ends with the code 3
/// @throws CheckFailure with the problem, and behind it the step and what it reported
void runSession(const std::vector<Step>& steps, unsigned patience);

}  // namespace wb
