#pragma once

#include <string>
#include <vector>

namespace sessions {

/// Runs one session in this process. Gives what went wrong, or an empty text.
/// @param patience how many seconds a step may take before the process ends with the code 3
std::string runSession(const std::vector<std::string>& steps, unsigned patience);

}  // namespace sessions
