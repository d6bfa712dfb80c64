#pragma once

#include <string>

namespace sessions {

/// Looks into the loaded module: its maps may hold documents only that are open. Gives what is
/// wrong, or an empty text; raises std::runtime_error if the module's object can't be found.
std::string staleDocuments();

}  // namespace sessions
