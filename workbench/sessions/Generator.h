#pragma once

#include <string>
#include <vector>

namespace sessions {

/// The lines that set up the vault, its drawings and the module.
std::string preamble();

/// What a user, or another one elsewhere, does in a session: the lines of each step. The same seed
/// gives the same steps, and fewer of them are the beginning of more.
std::vector<std::string> steps(unsigned seed, unsigned count);

}  // namespace sessions
