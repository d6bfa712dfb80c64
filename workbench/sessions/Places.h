#pragma once

#include <filesystem>

namespace sessions {

/// Where a session works; its drawings are a copy, since a session may save over them.
std::filesystem::path workFolder();
std::filesystem::path drawingsFolder();

}  // namespace sessions
