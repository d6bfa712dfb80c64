#pragma once

#include <string>
#include <vector>

namespace sessions {

/// Runs one session in this process. Gives what went wrong, or an empty text.
std::string runSession(const std::vector<std::string>& steps);

}  // namespace sessions
